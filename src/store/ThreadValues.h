#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <typeindex>

#include "FX_Algen/Messages.h"

namespace FX_Algen::store {

class Connection;

/// Values that exist once for each host thread, together in one place.
struct ThreadValues {
    /// Taxa per water-quality class I, I-II, II, II-III, III, III-IV, IV; see `Gueteklasse_Zaehlen`.
    std::array<std::int16_t, 7> GueteklasseAnzahl{};
    /// Whether the catalogue may be edited; the catalogue windows read it.
    bool KatalogEdit = false;
    /// The host's current settings path.
    std::string RegistryPfad;
    /// The port to a person; the recording one until a host installs its own.
    std::shared_ptr<Messages> Port;
    /// Open databases by their canonical path, for as long as a handle keeps them.
    std::map<std::string, std::weak_ptr<Connection>> Connections;

    /// What a layer above keeps once for each host thread, such as the open forms: one value of each type,
    /// made at first use.
    template <class T>
    T& Part() {
        auto& part = parts_[typeid(T)];
        if (!part) part = std::make_shared<T>();
        return *static_cast<T*>(part.get());
    }

private:
    std::map<std::type_index, std::shared_ptr<void>> parts_;
};

/// The calling thread's values.
ThreadValues& Thread();

/// The calling thread's port to a person.
Messages& Port();

}  // namespace FX_Algen::store
