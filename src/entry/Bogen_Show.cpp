#include "entry/Bogen_Show.h"

#include <memory>

#include "controls/Fenster.h"
#include "controls/OpenForms.h"
#include "entry/frmProbenstelle.h"
#include "entry/frmProbenstelleSeston.h"

namespace FX_Algen::entry {

namespace {

/// Has all open forms leave their rows. False where the sheet itself could not be saved.
bool Gespeichert(const controls::Form& bogen) {
    bool gespeichert = true;
    const auto formen = controls::OpenForms().All();
    for (const auto& form : formen)
        if (form->IsOpen() && !form->SaveRows() && form.get() == &bogen) gespeichert = false;
    return gespeichert;
}

/// The settings that both sheets take, in their order.
template <class Bogen>
void Uebergeben_Beiden(Bogen& bogen, const Bogenauftrag& auftrag) {
    bogen.CurrentWS(auftrag.CurrentWS);
    bogen.CurrentDB(auftrag.CurrentDB);
    bogen.Sprache(auftrag.SprachID);
    bogen.TeilraumID(auftrag.TeilraumID);
    bogen.DBName(auftrag.DBName);
    bogen.DebugModus(auftrag.DebugModus);
    bogen.FX_MainWnd(auftrag.FX_MainWnd);
    bogen.AktBenutzer(auftrag.AktBenutzer);
    bogen.QOVAKatalogID(auftrag.QOVAKatalogID);
}

void Uebergeben(frmProbenstelle& bogen, const Bogenauftrag& auftrag) {
    Uebergeben_Beiden(bogen, auftrag);
    bogen.PSBez(auftrag.PSBez);
    Allgemein::SetControlCaptions(bogen, auftrag.SprachID);
    bogen.CanEdit(auftrag.CanEdit);
    bogen.AnzeigeVersion40(auftrag.AnzeigeVersion40);
    bogen.EditMode(auftrag.CanEdit);
}

void Uebergeben(frmProbenstelleSeston& bogen, const Bogenauftrag& auftrag) {
    Uebergeben_Beiden(bogen, auftrag);
    Allgemein::SetControlCaptions(bogen, auftrag.SprachID);
}

/// What came with the data takes the edit state, too.
void Nach_Den_Daten(frmProbenstelle& bogen, const Bogenauftrag& auftrag) { bogen.EditMode(auftrag.CanEdit); }
void Nach_Den_Daten(frmProbenstelleSeston&, const Bogenauftrag&) {}

/// Hands the sheet its settings and shows it. It ends unseen where it opens no data.
template <class Bogen>
void Anzeigen(const Bogenauftrag& auftrag) {
    const auto bogen = controls::OpenForms().Load<Bogen>();
    if (!Gespeichert(*bogen)) {
        bogen->Show(bogen->FX_MainWnd());
        return;
    }
    // A picker that stays would choose for rows that are not shown any more; it has written nothing yet.
    for (const auto& kind : controls::OpenForms().ChildrenOf(*bogen)) kind->Close(controls::Ending::Discard);
    try {
        Uebergeben(*bogen, auftrag);
        if (!bogen->DataObject_Init()) {
            bogen->Close(controls::Ending::Discard);
            return;
        }
    } catch (...) {
        // The rows in view are those of the former settings.
        if (bogen->Gezeigt)
            Uebergeben(*bogen, *bogen->Gezeigt);
        else if (!bogen->Visible())
            bogen->Close(controls::Ending::Discard);
        throw;
    }
    Nach_Den_Daten(*bogen, auftrag);
    bogen->Gezeigt = auftrag;
    bogen->Show(bogen->FX_MainWnd());
}

}  // namespace

void Probenstelle_Show(const Bogenauftrag& auftrag) { Anzeigen<frmProbenstelle>(auftrag); }
void ProbenstelleSeston_Show(const Bogenauftrag& auftrag) { Anzeigen<frmProbenstelleSeston>(auftrag); }

void Probenstelle_Unload() {
    const auto bogen = controls::OpenForms().Find<frmProbenstelle>();
    const auto formen = controls::OpenForms().All();
    for (const auto& form : formen)
        if (form != bogen && form->IsOpen()) form->SaveRows();
    if (bogen) bogen->Close();
}

}  // namespace FX_Algen::entry
