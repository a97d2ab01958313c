#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "fxalgen/record/Lauf.h"

/// What the programs know of seston samples, and their own record of the last run over them (table
/// `fx_LaufSeston`). It is kept apart from that of the algae, so that neither run disowns the other's
/// results.
namespace FX_Algen::cli {

/// The sub-habitats with at least one seston finding.
std::set<std::int32_t> TeilraeumeMitSeston(store::Database& database);

/// Whether the sub-habitat was sampled for seston, be it that nothing was found.
bool IstSestonBeprobt(store::Database& database, std::int32_t ID_TR);

/// Percent of the abundance that carries a saprobic value, of all that the index counts; absent without any.
/// Unrated taxa pull the index towards 0, so that this tells what it rests on.
std::optional<double> AnteilMitSaprobiewert(store::Database& database, std::int32_t ID_TR);

/// Digest of all that the calculation of a sub-habitat's seston reads: findings with their abundance, and of
/// each taxon found its saprobic value and its valences.
std::string DigestOfSeston(store::Database& database, std::int32_t ID_TR);

/// Forgets the run before.
void SestonLaufBeginnen(store::Database& database);

/// Notes a sub-habitat as calculated. `inputs` is the digest of what was read, taken before the calculation,
/// so that a finding that came in meanwhile does not count as calculated. Nothing is noted where it has no
/// result row.
void SestonNotieren(store::Database& database, std::int32_t ID_TR, const std::string& inputs);
/// Notes a sub-habitat as failed.
void SestonNotieren(store::Database& database, std::int32_t ID_TR, const Error& error);

/// State of the current row of "SELECT * FROM sesErgProjekt …".
LaufBefund SestonBefund(store::Database& database, const store::Recordset& row);

/// How the last run of a sub-habitat failed where it left no row at all; none otherwise.
std::optional<LaufBefund> SestonFehlschlagOhneZeile(store::Database& database, std::int32_t ID_TR);

}  // namespace FX_Algen::cli
