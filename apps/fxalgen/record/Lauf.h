#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "fxalgen/record/AssessmentDigests.h"

/// The programs' own record of the last run (table `fx_Lauf`): a digest of what each sub-habitat was
/// calculated or assessed from and of what came out, or how it failed.
namespace FX_Algen::cli {

/// How far a result row can be trusted.
enum class LaufStand : std::uint8_t {
    Current,     ///< findings, ratings and reference rows are those it was calculated from
    OutOfDate,   ///< they changed since
    Incomplete,  ///< its calculation failed half-way
    Unknown,     ///< another program calculated it, or it was changed since
};

/// English word of a state, for results that programs read: "current", "out of date", "incomplete",
/// "unknown".
std::string_view LaufStandText(LaufStand stand);

struct LaufBefund {
    LaufStand Stand = LaufStand::Unknown;
    std::optional<std::int32_t> Fehlernummer;
    std::string Fehlertext;
};

/// Forgets the run before.
void LaufBeginnen(store::Database& database);

/// Notes a sub-habitat as calculated. Nothing is noted where it has no result row.
void LaufNotieren(store::Database& database, std::int32_t ID_TR);
/// Notes a sub-habitat as failed in the calculation.
void LaufNotieren(store::Database& database, std::int32_t ID_TR, const Error& error);

/// Notes one of the two assessments of a sub-habitat. `sample` is the digest of what was read, taken before
/// the run, so that a finding that came in meanwhile does not count as assessed. Nothing is noted where the
/// run left no row.
void BewertungNotieren(store::Database& database, AssessmentDigests& digests, const AssessmentSite& site,
                       bool KAOnly, const std::string& sample);
/// Notes one of them as failed.
void BewertungNotieren(store::Database& database, std::int32_t ID_TR, bool KAOnly, const Error& error);

/// How the last run of a sub-habitat failed where it left no row at all; none otherwise.
std::optional<LaufBefund> FehlschlagOhneZeile(store::Database& database, std::int32_t ID_TR);

/// Tells the states of result rows, for one command.
class Laufpruefung {
public:
    explicit Laufpruefung(store::DatabasePtr database);

    /// State of the current row of "SELECT * FROM awaErgProjekt …", also of one that an assessment left.
    LaufBefund Ergebnis(const store::Recordset& row);
    /// State of the current row of "SELECT * FROM awaErgWRRL …".
    LaufBefund Bewertung(const store::Recordset& row);

private:
    struct Notiz;
    std::optional<Notiz> Lesen(const store::Recordset& row);
    LaufBefund Befund(const Notiz& notiz, std::int32_t ID_TR);
    std::string Inputs(std::int32_t ID_TR, const std::string& group);

    store::DatabasePtr database_;
    std::optional<AssessmentDigests> digests_;  ///< only where an assessment is met
    /// A sub-habitat may have two rows: its sample is read once.
    std::optional<AssessmentSite> site_;
    std::string sample_;
};

}  // namespace FX_Algen::cli
