#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Error.h"
#include "host/TestDatabase.h"

namespace FX_Algen::test {

/// Two projects with findings of every kind, and stored selections over them.
///
///     Projekt 1 "Österreichs Flüsse"
///       Abschnitt 12 (position 1)
///         UnvUStelle 121 "Öd"               VerUStelle 1211 12.05.2026   Teilraum 5
///       Abschnitt 11 (position 2)
///         UnvUStelle 112 "Wehr" (1)         VerUStelle 1121 12.05.2026   Teilraum 4, 7
///         UnvUStelle 111 "Brücke" (2)       VerUStelle 1111 12.05.2026   Teilraum 2 (1), 1 (2)
///                                           VerUStelle 1112 03.08.2026   Teilraum 3
///     Projekt 2 "Übung"
///       Abschnitt 21, UnvUStelle 211        VerUStelle 2111 12.05.2026   Teilraum 6
///
/// Sub-habitat 1 has two sampling sites, 1 and 10; each other one has a site of its own number. 7 has no
/// covers (`awaTeilraum`). Taxon 904 has no ratings, 905 and 906 are not in the catalogue.
class Auswahldatenbank : public TestDatabase {
public:
    Auswahldatenbank();

    /// A selection with its members, in that order, and its condition as the store keeps it ("Null" or a text
    /// in quotes).
    void Auswahl(std::int32_t id, const std::string& ebene, const std::vector<std::int32_t>& mitglieder,
                 const std::string& bedingung = "'Teilraum.ID_TR>0'");

    /// First two columns of the rows, as "a/b" with "-" for Null, joined by blanks.
    std::string Zeilen(const std::string& anweisung) const;
    /// The same in the order of their texts.
    std::string ZeilenSortiert(const std::string& anweisung) const;

private:
    std::vector<std::string> Texte(const std::string& anweisung) const;
};

/// Number of the failure of a call; 0 where it does not fail.
template <class Aufruf>
std::int32_t Fehlernummer(Aufruf aufruf) {
    try {
        aufruf();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

/// `text` with the first `alt` replaced; the test fails where it is not in it.
std::string Ersetzt(std::string text, std::string_view alt, std::string_view neu);

}  // namespace FX_Algen::test
