#include "fxalgen/Scope.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <ostream>
#include <unordered_set>

#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"
#include "fxalgen/Command.h"
#include "fxalgen/Table.h"
#include "fxalgen/Words.h"

namespace FX_Algen::cli {

namespace {

struct ScopeForm {
    Scope::Kind Kind;
    std::string_view Word;
    std::string_view Table;  ///< where the scope's own row stands
    std::string_view Key;
};

constexpr std::array<ScopeForm, 4> Forms = {{
    {Scope::Kind::Projekt, "Projekt", "Projekt", "ID_PRJ"},
    {Scope::Kind::UStelle, "UStelle", "UnvUStelle", "ID_UUS"},
    {Scope::Kind::Rechenmanager, "Rechenmanager", "RechenProjekt", "ID_RechMan"},
    {Scope::Kind::Teilraum, "Teilraum", "Teilraum", "ID_TR"},
}};

/// Level of a stored selection and the key that its members name.
struct Level {
    std::string_view RechManEbene;
    std::string_view Key;
};

constexpr std::array<Level, 5> Levels = {{
    {"Projekt", "Projekt.ID_PRJ"},
    {"Abschnitt", "Abschnitt.ID_AB"},
    {"UnvU-Stelle", "UnvUStelle.ID_UUS"},
    {"VerU-Stelle", "VerUStelle.ID_VUS"},
    {"Teilraum", "Teilraum.ID_TR"},
}};

constexpr std::string_view SelectList =
    "SELECT Teilraum.ID_TR AS TeilraumNr, Teilraum.TRBez, Projekt.ID_PRJ, Projekt.PRJBez, Abschnitt.ABBez, "
    "UnvUStelle.ID_UUS, UnvUStelle.USBez, UnvUStelle.Gewaessername, UnvUStelle.ID_AL_Bioregion, "
    "AL_Hoehenstufe.Hoehenstufe, "
    "VerUStelle.USDatumVon, awaTeilraum.ID_TR AS AlgenNr ";

constexpr std::string_view TreeOrder =
    "Projekt.PRJBez, Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, VerUStelle.USDatumVon, "
    "Teilraum.RF, Teilraum.TRBez, Teilraum.ID_TR;";

/// The tree from the sub-habitat upward, so that one whose upper rows are missing is not lost.
constexpr std::string_view TreeFrom =
    "FROM (((((Teilraum LEFT JOIN VerUStelle ON Teilraum.ID_VUS = VerUStelle.ID_VUS) "
    "LEFT JOIN UnvUStelle ON VerUStelle.ID_UUS = UnvUStelle.ID_UUS) "
    "LEFT JOIN Abschnitt ON UnvUStelle.ID_AB = Abschnitt.ID_AB) "
    "LEFT JOIN Projekt ON Abschnitt.ID_PRJ = Projekt.ID_PRJ) "
    "LEFT JOIN AL_Hoehenstufe ON UnvUStelle.ID_AL_Hoehenstufe = AL_Hoehenstufe.ID_AL_Hoehenstufe) "
    "LEFT JOIN awaTeilraum ON Teilraum.ID_TR = awaTeilraum.ID_TR ";

bool SameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

const ScopeForm& FormOf(Scope::Kind kind) {
    return *std::find_if(Forms.begin(), Forms.end(),
                         [&](const ScopeForm& form) { return form.Kind == kind; });
}

std::string Concat(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) text += piece;
    return text;
}

void RequireScopeRow(store::Database& database, const Scope& scope) {
    if (scope.What == Scope::Kind::All) return;
    const ScopeForm& form = FormOf(scope.What);
    const std::string id = store::NumberText(scope.ID);
    const auto row = database.OpenRecordset(
        Concat({"SELECT ", form.Key, " FROM ", form.Table, " WHERE ", form.Key, "=", id, ";"}));
    if (!row->Eof()) return;
    throw Error(ErrorNumber::UnknownField, Concat({"there is no ", form.Word, ":", id, " in this database (",
                                                   form.Table, ".", form.Key, ")"}));
}

std::string Condition(const Scope& scope) {
    const std::string id = store::NumberText(scope.ID);
    switch (scope.What) {
        case Scope::Kind::Projekt:
            return Concat({"WHERE Abschnitt.ID_PRJ = ", id, " "});
        case Scope::Kind::UStelle:
            return Concat({"WHERE VerUStelle.ID_UUS = ", id, " "});
        case Scope::Kind::Teilraum:
            return Concat({"WHERE Teilraum.ID_TR = ", id, " "});
        case Scope::Kind::All:
        case Scope::Kind::Rechenmanager:
            break;
    }
    return {};
}

std::string_view KeyOfLevel(const std::string& level, const std::string& id) {
    for (const Level& known : Levels) {
        if (SameWord(known.RechManEbene, level)) return known.Key;
    }
    throw Error(ErrorNumber::SyntaxError,
                Concat({"the selection Rechenmanager:", id, " has the unknown level '", level, "'"}));
}

/// The statement of a stored selection. Its condition may name any table of the path, so that the whole path
/// is joined at every level.
std::string SelectionStatement(store::Database& database, std::int32_t ID_RechMan) {
    const std::string id = store::NumberText(ID_RechMan);
    const auto row = database.OpenRecordset(
        Concat({"SELECT RechManEbene, RechManSQL FROM RechenProjekt WHERE ID_RechMan=", id, ";"}));
    const store::Value level = (*row)["RechManEbene"];
    const store::Value condition = (*row)["RechManSQL"];
    const std::string_view key = KeyOfLevel(level.IsNull() ? std::string() : level.Text(), id);
    if (condition.IsNull() || condition.Text().empty()) {
        throw Error(ErrorNumber::SyntaxError, Concat({"the selection Rechenmanager:", id,
                                                      " has no condition (RechenProjekt.RechManSQL)"}));
    }
    return Concat(
        {SelectList,
         "FROM ((((((Projekt INNER JOIN Abschnitt ON Projekt.ID_PRJ = Abschnitt.ID_PRJ) "
         "INNER JOIN UnvUStelle ON Abschnitt.ID_AB = UnvUStelle.ID_AB) "
         "INNER JOIN VerUStelle ON UnvUStelle.ID_UUS = VerUStelle.ID_UUS) "
         "INNER JOIN Teilraum ON VerUStelle.ID_VUS = Teilraum.ID_VUS) "
         "INNER JOIN RechenProjektListe ON ",
         key,
         " = RechenProjektListe.ID_Ebene) "
         "LEFT JOIN AL_Hoehenstufe ON UnvUStelle.ID_AL_Hoehenstufe = AL_Hoehenstufe.ID_AL_Hoehenstufe) "
         "LEFT JOIN awaTeilraum ON Teilraum.ID_TR = awaTeilraum.ID_TR "
         "WHERE (",
         condition.Text(), " AND RechenProjektListe.ID_RechMan=", id,
         ") ORDER BY RechenProjektListe.EbenenRF, ", TreeOrder});
}

std::string Statement(store::Database& database, const Scope& scope) {
    if (scope.What == Scope::Kind::Rechenmanager) return SelectionStatement(database, scope.ID);
    return Concat({SelectList, TreeFrom, Condition(scope), "ORDER BY ", TreeOrder});
}

Teilraum ReadTeilraum(const store::Recordset& row) {
    Teilraum teilraum;
    teilraum.ID_TR = row["TeilraumNr"].I4();
    teilraum.ID_PRJ = row["ID_PRJ"];
    teilraum.ID_UUS = row["ID_UUS"];
    teilraum.PRJBez = row["PRJBez"];
    teilraum.ABBez = row["ABBez"];
    teilraum.USBez = row["USBez"];
    teilraum.Gewaessername = row["Gewaessername"];
    teilraum.USDatumVon = row["USDatumVon"];
    teilraum.TRBez = row["TRBez"];
    teilraum.ID_AL_Bioregion = row["ID_AL_Bioregion"];
    teilraum.Hoehenstufe = row["Hoehenstufe"];
    teilraum.HatAlgen = !row["AlgenNr"].IsNull();
    return teilraum;
}

template <typename Show>
std::string LabelOf(const Teilraum& teilraum, const std::string& word, const Show& show) {
    std::string names;
    for (const store::Value* name :
         {&teilraum.PRJBez, &teilraum.ABBez, &teilraum.USBez, &teilraum.USDatumVon, &teilraum.TRBez}) {
        if (name->IsNull()) continue;
        if (!names.empty()) names += " / ";
        names += show(*name);
    }
    return word + " " + store::NumberText(teilraum.ID_TR) + (names.empty() ? "" : " (" + names + ")");
}

}  // namespace

std::string Teilraum::Label() const {
    return LabelOf(*this, "Teilraum", [](const store::Value& name) { return name.Text(); });
}

std::string Teilraum::Label(std::int16_t SprachID) const {
    return LabelOf(*this, Text(words::Teilraum, SprachID),
                   [&](const store::Value& name) { return DisplayText(name, SprachID); });
}

Scope ParseScope(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon != std::string_view::npos) {
        const std::string_view word = text.substr(0, colon);
        const std::string_view number = text.substr(colon + 1);
        Scope scope;
        const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), scope.ID);
        const bool isNumber = failure == std::errc() && end == number.data() + number.size();
        for (const ScopeForm& form : Forms) {
            if (!isNumber || !SameWord(form.Word, word)) continue;
            scope.What = form.Kind;
            return scope;
        }
    }
    throw UsageError("'" + std::string(text) +
                     "' is no scope; write Projekt:<ID_PRJ>, UStelle:<ID_UUS>, Rechenmanager:<ID_RechMan> or "
                     "Teilraum:<ID_TR>");
}

std::vector<Teilraum> ReadTeilraeume(store::Database& database, const Scope& scope) {
    RequireScopeRow(database, scope);
    std::vector<Teilraum> list;
    std::unordered_set<std::int32_t> seen;  // a stored selection may name a sub-habitat by two members
    const auto rows = database.OpenRecordset(Statement(database, scope));
    for (; !rows->Eof(); rows->MoveNext()) {
        Teilraum teilraum = ReadTeilraum(*rows);
        if (seen.insert(teilraum.ID_TR).second) list.push_back(std::move(teilraum));
    }
    return list;
}

void WarnOfEmptyScope(std::string_view command, const std::optional<std::string>& scope,
                      const std::vector<Teilraum>& list, std::ostream& err) {
    if (!scope || !list.empty()) return;
    err << "fxalgen " << command << ": warning: " << *scope << " holds no sub-habitat\n";
}

}  // namespace FX_Algen::cli
