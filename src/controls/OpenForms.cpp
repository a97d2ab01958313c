#include "controls/OpenForms.h"

#include <algorithm>
#include <string>

#include "FX_Algen/Error.h"
#include "store/TextOrder.h"
#include "store/ThreadValues.h"

namespace FX_Algen::controls {

std::shared_ptr<Form> OpenFormList::Find(std::string_view name) const {
    for (const auto& form : forms_)
        if (store::CompareCaseBlind(form->Name(), name) == 0) return form;
    return nullptr;
}

std::shared_ptr<Form> OpenFormList::Needed(std::string_view name) const {
    if (auto found = Find(name)) return found;
    std::string open;
    for (const auto& form : forms_) open += (open.empty() ? "; open: " : ", ") + form->Name();
    throw Error(ErrorNumber::TypeMismatch, "No form '" + std::string(name) + "' is open" + open + ".");
}

std::vector<std::shared_ptr<Form>> OpenFormList::ChildrenOf(const Form& form) const {
    std::vector<std::shared_ptr<Form>> out;
    for (const auto& other : forms_)
        if (other->Parent() == &form) out.push_back(other);
    return out;
}

bool OpenFormList::SaveRows() {
    // A copy: a handler may close forms or load others.
    const auto forms = forms_;
    bool saved = true;
    for (const auto& form : forms)
        if (form->IsOpen() && !form->SaveRows()) saved = false;
    return saved;
}

void OpenFormList::Remove(const Form& form) {
    std::erase_if(forms_, [&form](const auto& other) { return other.get() == &form; });
}

OpenFormList& OpenForms() { return store::Thread().Part<OpenFormList>(); }

}  // namespace FX_Algen::controls
