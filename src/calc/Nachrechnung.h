#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Explain.h"
#include "calc/Gueteklasse.h"
#include "calc/Lesen.h"

/// What every explanation by rerun needs: the rerun leaves the counters of the thread alone, its failure is
/// part of the answer, and its row is compared with the stored one.
namespace FX_Algen::calc {

/// The counters of the thread belong to the calculation of the host; a rerun gives them back.
class Zaehlerschutz {
public:
    Zaehlerschutz();
    ~Zaehlerschutz();
    Zaehlerschutz(const Zaehlerschutz&) = delete;
    Zaehlerschutz& operator=(const Zaehlerschutz&) = delete;

private:
    Klassenzahlen gemerkt_;
};

/// How a rerun ended.
struct Ausgang {
    std::optional<Explanation::Failure> Failed;
    std::optional<NullImWert> Abbruch;  ///< the same failure, where a Null was its cause
};

/// Runs `lauf` and takes its failure down.
template <class Lauf>
Ausgang Versuche(Lauf lauf) {
    Ausgang ausgang;
    try {
        lauf();
    } catch (const NullImWert& error) {
        ausgang.Abbruch = error;
        ausgang.Failed = Explanation::Failure{error.Number(), error.Description()};
    } catch (const Error& error) {
        ausgang.Failed = Explanation::Failure{error.Number(), error.Description()};
    }
    return ausgang;
}

/// A result row by its columns; empty where there is none.
using Ergebnis = std::map<std::string, store::Value, std::less<>>;

/// The columns `spalten` of the first row that `abfrage` delivers.
Ergebnis LiesErgebnis(store::Database& database, const std::string& abfrage,
                      const std::vector<std::string>& spalten);

/// A column of a row; Null without the row.
store::Value Wert(const Ergebnis& ergebnis, std::string_view spalte);

bool HatZeile(store::Database& database, const std::string& abfrage);

struct Vergleich {
    StoredResult State = StoredResult::Missing;
    std::vector<ExplainedColumn> Columns;
};

/// Compares the row of the rerun with the stored one, column by column.
Vergleich Vergleiche(const std::vector<std::string>& spalten, const Ergebnis& neu, const Ergebnis& alt);

/// Enters what stands in both rows into explained parts, by their columns.
template <class Teile>
void TrageEin(Teile& teile, const Ergebnis& neu, const Ergebnis& alt) {
    for (auto& teil : teile) {
        teil.Result = Wert(neu, teil.Column);
        teil.Stored = Wert(alt, teil.Column);
    }
}

}  // namespace FX_Algen::calc
