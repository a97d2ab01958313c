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

/// Hands the sheet its settings and shows it. It ends unseen where it opens no data.
template <class Bogen, class Einrichten>
void Anzeigen(Bogen& bogen, Einrichten einrichten) {
    if (!Gespeichert(bogen)) {
        bogen.Show(bogen.FX_MainWnd());
        return;
    }
    // A picker that stays would choose for rows that are not shown any more; it has written nothing yet.
    for (const auto& kind : controls::OpenForms().ChildrenOf(bogen)) kind->Close(controls::Ending::Discard);
    try {
        if (einrichten())
            bogen.Show(bogen.FX_MainWnd());
        else
            bogen.Close(controls::Ending::Discard);
    } catch (...) {
        if (!bogen.Visible()) bogen.Close(controls::Ending::Discard);
        throw;
    }
}

/// The settings that both sheets take, in their order.
template <class Bogen>
void Uebergeben(Bogen& bogen, const Bogenauftrag& auftrag) {
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

}  // namespace

void Probenstelle_Show(const Bogenauftrag& auftrag) {
    const auto bogen = controls::OpenForms().Load<frmProbenstelle>();
    Anzeigen(*bogen, [&] {
        Uebergeben(*bogen, auftrag);
        bogen->PSBez(auftrag.PSBez);
        Allgemein::SetControlCaptions(*bogen, auftrag.SprachID);
        bogen->CanEdit(auftrag.CanEdit);
        bogen->AnzeigeVersion40(auftrag.AnzeigeVersion40);
        bogen->EditMode(auftrag.CanEdit);
        if (!bogen->DataObject_Init()) return false;
        // What came with the data takes the edit state, too.
        bogen->EditMode(auftrag.CanEdit);
        return true;
    });
}

void ProbenstelleSeston_Show(const Bogenauftrag& auftrag) {
    const auto bogen = controls::OpenForms().Load<frmProbenstelleSeston>();
    Anzeigen(*bogen, [&] {
        Uebergeben(*bogen, auftrag);
        Allgemein::SetControlCaptions(*bogen, auftrag.SprachID);
        return bogen->DataObject_Init();
    });
}

void Probenstelle_Unload() {
    const auto bogen = controls::OpenForms().Find<frmProbenstelle>();
    const auto formen = controls::OpenForms().All();
    for (const auto& form : formen)
        if (form != bogen && form->IsOpen()) form->SaveRows();
    if (bogen) bogen->Close();
}

}  // namespace FX_Algen::entry
