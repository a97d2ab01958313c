#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "FX_Algen/Store.h"
#include "controls/Form.h"
#include "controls/Grid.h"

namespace FX_Algen::entry {

/// The catalogue that a sheet enters taxa of.
enum class Katalog : std::int16_t { Algen = 0, Seston = 1 };

/// What the taxon picker is opened for: a taxon more, or another one in place of the row's.
enum class Auswahlmodus : std::uint8_t { Neu, Aendern };

/// A sheet of a sampling site, as the taxon picker sees it: the algae sheet or the seston sheet.
class Probenstellenbogen {
public:
    virtual ~Probenstellenbogen() = default;

    /// The sheet as a form; the picker is its child and takes `Sprache` from it.
    virtual controls::Form& Bogen() noexcept = 0;
    virtual Katalog BogenKatalog() const noexcept = 0;
    virtual store::WorkspacePtr BogenWS() const = 0;
    virtual store::DatabasePtr BogenDB() const = 0;
    virtual bool BogenDebugModus() const noexcept = 0;

    /// What stands in the field `txtID_PS`: `ID_PS` of the sampling site, as text.
    virtual std::string BogenID_PS() const = 0;
    /// What stands in the field `txtID_TLR`: `ID_TR`, as text; none on the seston sheet.
    virtual std::optional<std::string> BogenID_TLR() const = 0;
    /// The list of taxa, `vsfgAlgenArt`; column 1 holds `ID_Art`, column 4 is the check box "cf.".
    virtual controls::Grid& BogenTaxa() noexcept = 0;

    /// Builds and fills the list of taxa anew.
    virtual void GridAlgenArt_Init() = 0;
    /// Places the cursor of the list on a taxon, with or without `cf`.
    virtual void Select_AktArt(std::int32_t ID_Art, bool cf) = 0;
};

}  // namespace FX_Algen::entry
