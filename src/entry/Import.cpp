#include "entry/Import.h"

#include <utility>

#include "store/ThreadValues.h"

namespace FX_Algen {

namespace {

struct ImportMaker {
    ImportFactory Factory;
};

}  // namespace

ImportFactory SetImport(ImportFactory factory) {
    return std::exchange(store::Thread().Part<ImportMaker>().Factory, std::move(factory));
}

namespace entry {

std::unique_ptr<ImportComponent> MakeImport() noexcept {
    try {
        // A copy: the maker may install another one.
        const auto factory = store::Thread().Part<ImportMaker>().Factory;
        return factory ? factory() : nullptr;
    } catch (...) {
        return nullptr;
    }
}

}  // namespace entry
}  // namespace FX_Algen
