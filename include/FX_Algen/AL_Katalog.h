#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "FX_Algen/Store.h"

namespace FX_Algen {

/// The windows of the taxon catalogue, its taxonomy and its synonyms.
///
/// As with `AL_PS`, set members store and return, and a value stays until it is set again.
class AL_Katalog {
public:
    /// Workspace.
    void CurrentWS(store::WorkspacePtr value) noexcept { kontext_.CurrentWS = std::move(value); }
    /// Project database with the catalogue tables.
    void CurrentDB(store::DatabasePtr value) noexcept { kontext_.CurrentDB = std::move(value); }
    /// The host's main database, which holds `Menuegruppe` and `Menuegruppenzuordnung`.
    void MainDB(store::DatabasePtr value) noexcept { kontext_.MainDB = std::move(value); }
    /// Path of `CurrentDB`.
    void DBName(std::string value) noexcept { kontext_.DBName = std::move(value); }
    /// Path of `MainDB`.
    void DBNameMain(std::string value) noexcept { kontext_.DBNameMain = std::move(value); }
    /// Name of the menu group to apply to the windows.
    void Menuegruppe(std::string value) noexcept { kontext_.Menuegruppe = std::move(value); }
    /// The report database.
    void ReportDB(store::DatabasePtr value) noexcept { kontext_.ReportDB = std::move(value); }
    /// Path of the report database.
    void ReportDBName(std::string value) noexcept { kontext_.ReportDBName = std::move(value); }
    /// Language base: 10000 German, 20000 English; below 10000 counts as German.
    void SprachID(std::int16_t value) noexcept { kontext_.SprachID = value; }
    /// Window handle of the host's main window, issued by the display port; 0 = none.
    void FX_MainWnd(std::int32_t value) noexcept { kontext_.FX_MainWnd = value; }
    /// Empty at all times: no operation writes it.
    std::string ReportName() const { return ergebnis_.ReportName; }
    /// Empty at all times: no operation writes it.
    std::string ReportCaption() const { return ergebnis_.ReportCaption; }
    /// Window handle of the catalogue overview, set by `Kataloguebersicht_Show` and
    /// `KataloguebersichtSeston_Show`; 0 before.
    std::int32_t KatUebersicht_hWnd() const { return ergebnis_.KatUebersicht_hWnd; }
    /// Folder of the host; the templates of the catalogue reports lie in its subfolder "Reports".
    void AppPath(std::string value) noexcept { kontext_.AppPath = std::move(value); }
    /// Handed to the windows.
    void SysReport(std::string value) noexcept { kontext_.SysReport = std::move(value); }
    /// Whether the catalogue may be edited.
    void KatalogEdit(bool value) noexcept { kontext_.KatalogEdit = value; }
    /// Name of the current user; handed to the windows.
    void AktuellerBenutzer(std::string value) noexcept { kontext_.AktuellerBenutzer = std::move(value); }
    /// Version of the host; handed to the windows.
    void FX_Version(std::string value) noexcept { kontext_.FX_Version = std::move(value); }

    /// Shows the catalogue overview. Fails with 445.
    void Kataloguebersicht_Show();
    /// Shows the overview of the standard ratings. Fails with 445.
    void KatalogEinStandard_Show();
    /// Shows the taxonomy. Fails with 445.
    void KatalogSystematik_Show();
    /// Shows the synonyms. Fails with 445.
    void KatalogSynonyme_Show();
    /// Shows the catalogue overview of seston. Fails with 445.
    void KataloguebersichtSeston_Show();

private:
    /// What the host set.
    struct Kontext {
        store::WorkspacePtr CurrentWS;
        store::DatabasePtr CurrentDB;
        store::DatabasePtr MainDB;
        std::string DBName;
        std::string DBNameMain;
        std::string Menuegruppe;
        store::DatabasePtr ReportDB;
        std::string ReportDBName;
        std::int16_t SprachID = 0;
        std::int32_t FX_MainWnd = 0;
        std::string AppPath;
        std::string SysReport;
        bool KatalogEdit = false;
        std::string AktuellerBenutzer;
        std::string FX_Version;
    };
    /// What operations leave behind for the host.
    struct Ergebnis {
        std::string ReportName;
        std::string ReportCaption;
        std::int32_t KatUebersicht_hWnd = 0;
    };

    Kontext kontext_;
    Ergebnis ergebnis_;
};

}  // namespace FX_Algen
