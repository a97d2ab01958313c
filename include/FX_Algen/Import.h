#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "FX_Algen/Store.h"

namespace FX_Algen {

/// The field of a sheet through which the import says how it went: the text "1" makes the sheet read its data
/// anew.
class ReturnField {
public:
    virtual ~ReturnField() = default;
    virtual void Text(const std::string& text) = 0;
};

/// The component that brings findings from a spreadsheet into a sampling site. The algae sheet makes one at
/// opening and offers the import only where that worked; on the command it sets what is listed here, in this
/// order, then starts it.
class ImportComponent {
public:
    virtual ~ImportComponent() = default;

    virtual void DBName(const std::string& path) = 0;          ///< path of the database
    virtual void KatalogTitel(const std::string& titel) = 0;   ///< "Taxaliste Österreich"
    virtual void Versionswort(const std::string& wort) = 0;    ///< the library's version
    virtual void MitKatalog(bool ja) = 0;                      ///< true
    virtual void Eigner(const std::string& text) = 0;          ///< "FX_Algen"
    virtual void Sprache(std::int16_t base) = 0;               ///< language base
    virtual void ID_PS(std::int32_t id) = 0;                   ///< the sampling site
    virtual void Benutzer(const std::string& name) = 0;        ///< who works
    virtual void CurrentDB(const store::DatabasePtr& db) = 0;  ///< the open database
    virtual void Bereich(const std::string& wort) = 0;         ///< "Algen"
    virtual void Spalten(
        const std::string& beschreibung) = 0;            ///< the columns of the sheet, see docs/hosts.md
    virtual void Rueckgabe(ReturnField& txtReturn) = 0;  ///< lives longer than the component
    virtual void Start() = 0;
};

/// Makes the component; it may fail or answer none, and then the sheet offers no import.
using ImportFactory = std::function<std::unique_ptr<ImportComponent>()>;

/// Installs the maker of the import component for the calling thread and returns the former one. Without a
/// call there is none.
ImportFactory SetImport(ImportFactory factory);

}  // namespace FX_Algen
