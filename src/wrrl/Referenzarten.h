#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "FX_Algen/AssessmentTrace.h"

/// Rules of the reference species module over plain numbers: the group, the restriction, the reference index.
/// Abundances are relative abundances in percent, where the diatoms make up 100 and the other algae another
/// 100.
namespace FX_Algen::wrrl {

/// All algae groups are assessed together where the others than diatoms have at least 50 percent at species
/// level, in more than 3 taxa; otherwise, and where it is asked for, the diatoms alone.
GroupReason Gruppengrund(bool KAOnly, float AbundanzArtniveauNKA, std::int32_t TaxazahlArtniveauNKA);

/// "Alle" or "KA".
std::string_view Gruppentext(GroupReason grund);

/// Abundance at species level of all groups below which an assessment of the group is restricted. It is
/// compared with `AbundanzArtniveau` in either group.
double Einschraenkungsgrenze(GroupReason grund);

/// What a group's reference index is made of.
struct Referenzzahlen {
    double AbundanzRefart = 0;
    double AbundanzGesamt = 0;
    double AbundanzArtniveau = 0;
    double TaxazahlRefart = 0;
    double TaxazahlArtniveau = 0;
};

/// Share of the reference species in the abundance:
///   AbundanzRefart / (whole - (AbundanzGesamt - AbundanzArtniveau)),
/// whole = 200 for "Alle", 100 for "KA". What was not determined to species level is taken out of the whole.
/// None where the divisor is 0.
std::optional<float> AbundanzTeil(GroupReason grund, const Referenzzahlen& zahlen);

/// Share of the reference species in the taxa at species level; 0 where there are none.
float AnzahlTeil(const Referenzzahlen& zahlen);

/// Mean of both shares.
float Referenzindex(float RI_Abundanz, float RI_Anzahl);

}  // namespace FX_Algen::wrrl
