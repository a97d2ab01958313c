#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/Form.h"

namespace FX_Algen::controls {

/// The open forms of the calling thread, in the order in which they were loaded. A sheet is open once at
/// most: who needs it loads it or finds the one there is.
class OpenFormList {
public:
    const std::vector<std::shared_ptr<Form>>& All() const noexcept { return forms_; }
    /// The form with the name, without regard to case; nullptr where none is open.
    std::shared_ptr<Form> Find(std::string_view name) const;
    /// The same; 13 where none is open, which names those that are.
    std::shared_ptr<Form> Needed(std::string_view name) const;
    /// The one form of the type; nullptr where it is not open.
    template <class T>
    std::shared_ptr<T> Find() const {
        for (const auto& form : forms_)
            if (auto found = std::dynamic_pointer_cast<T>(form)) return found;
        return nullptr;
    }
    /// The form of the type, made where it is not open yet.
    template <class T, class... A>
    std::shared_ptr<T> Load(A&&... arguments) {
        if (auto found = Find<T>()) return found;
        auto made = std::make_shared<T>(std::forward<A>(arguments)...);
        forms_.push_back(made);
        return made;
    }
    /// The children of a form.
    std::vector<std::shared_ptr<Form>> ChildrenOf(const Form& form) const;
    /// Has all forms leave their rows: what an operation that a host starts does first. False where a row
    /// failed, which was shown then; the others save all the same.
    bool SaveRows();

private:
    friend class Form;
    void Remove(const Form& form);
    std::vector<std::shared_ptr<Form>> forms_;
};

OpenFormList& OpenForms();

}  // namespace FX_Algen::controls
