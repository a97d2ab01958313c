#include "wrrl/Referenzarten.h"

#include "calc/Summe32.h"

namespace FX_Algen::wrrl {
namespace {

constexpr float MindestabundanzNKA = 50;
constexpr std::int32_t HoechstzahlFuerKA = 3;

}  // namespace

GroupReason Gruppengrund(bool KAOnly, float AbundanzArtniveauNKA, std::int32_t TaxazahlArtniveauNKA) {
    if (KAOnly) return GroupReason::DiatomsAsked;
    if (!(AbundanzArtniveauNKA >= MindestabundanzNKA)) return GroupReason::AbundanceBelow50;
    if (TaxazahlArtniveauNKA <= HoechstzahlFuerKA) return GroupReason::TaxaNotAbove3;
    return GroupReason::AllGroups;
}

std::string_view Gruppentext(GroupReason grund) { return grund == GroupReason::AllGroups ? "Alle" : "KA"; }

double Einschraenkungsgrenze(GroupReason grund) { return grund == GroupReason::AllGroups ? 167 : 85; }

std::optional<float> AbundanzTeil(GroupReason grund, const Referenzzahlen& zahlen) {
    const double ganzes = grund == GroupReason::AllGroups ? 200 : 100;
    const double teiler = ganzes - (zahlen.AbundanzGesamt - zahlen.AbundanzArtniveau);
    if (teiler == 0) return std::nullopt;
    return calc::Gerundet32(zahlen.AbundanzRefart / teiler);
}

float AnzahlTeil(const Referenzzahlen& zahlen) {
    if (!(zahlen.TaxazahlArtniveau > 0)) return 0;
    return calc::Gerundet32(zahlen.TaxazahlRefart / zahlen.TaxazahlArtniveau);
}

float Referenzindex(float RI_Abundanz, float RI_Anzahl) {
    return calc::Gerundet32((static_cast<double>(RI_Abundanz) + static_cast<double>(RI_Anzahl)) / 2);
}

}  // namespace FX_Algen::wrrl
