#include "fxalgen/chart/Charts.h"

#ifdef FX_ALGEN_HAS_UI
#include "FX_Algen/ui/Pictures.h"
#endif

namespace FX_Algen::cli {

PictureWriter BuiltInPictures() {
#ifdef FX_ALGEN_HAS_UI
    return [](const std::vector<charts::Chart>& charts, const std::string& path) {
        return ui::WritePictures(charts, path);
    };
#else
    return {};
#endif
}

}  // namespace FX_Algen::cli
