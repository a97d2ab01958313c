#include "controls/OpenForms.h"

#include <algorithm>

#include "store/TextOrder.h"
#include "store/ThreadValues.h"

namespace FX_Algen::controls {

std::shared_ptr<Form> OpenFormList::Find(std::string_view name) const {
    for (const auto& form : forms_)
        if (store::CompareCaseBlind(form->Name(), name) == 0) return form;
    return nullptr;
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
