#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "FX_Algen/Error.h"
#include "store/dialect/Catalogue.h"
#include "store/dialect/Names.h"
#include "store/dialect/Translate.h"

namespace FX_Algen::store::dialect::testing {

inline ColumnInfo Column(std::string name, Kind type) {
    ColumnInfo column;
    column.Name = std::move(name);
    column.Type = type;
    return column;
}

inline ColumnInfo TimeColumn(std::string name) {
    ColumnInfo column = Column(std::move(name), Kind::Date);
    column.HasTime = true;
    return column;
}

/// Tables with the names and kinds of the real ones, as far as the tests need them.
class SampleCatalogue : public Catalogue {
public:
    SampleCatalogue() {
        Add("awaArt", {Column("ID_ART", Kind::I4), Column("ID_UFAM", Kind::I4), Column("Gattung", Kind::Text),
                       Column("Art", Kind::Text), Column("Erstellt", Kind::Date),
                       Column("Loeschstatus", Kind::Bool), Column("RF", Kind::R8)});
        Add("awaPrStelle", {Column("ID_PS", Kind::I4), Column("ID_TR", Kind::I4), Column("PSBez", Kind::Text),
                            Column("Anzeige", Kind::Bool)});
        Add("awaArtPrStelle",
            {Column("ID_PS", Kind::I4), Column("ID_ART", Kind::I4), Column("CF", Kind::Bool),
             Column("DG_MA", Kind::R4), Column("Schalen_KA", Kind::I4)});
        Add("awaModulStandard",
            {Column("ID_ART", Kind::I4), Column("X", Kind::R8), Column("O", Kind::R8), Column("SI", Kind::R8),
             Column("Algenart", Kind::Text), Column("Lebensform", Kind::I4)});
        Add("awaTeilraum_MI",
            {Column("ID_TR_MI", Kind::I4), Column("ID_TR", Kind::I4), Column("DG_MI", Kind::R4)});
        Add("awaArtPrStelle_MI", {Column("ID_TR_MI", Kind::I4), Column("ID_ART", Kind::I4),
                                  Column("CF", Kind::Bool), Column("DG_MI", Kind::R4)});
        Add("awaFundarchiv",
            {Column("ID_Art", Kind::I4), Column("Häufigkeit", Kind::Text), Column("Datum", Kind::Date)});
        Add("VerUStelle",
            {Column("ID_VUS", Kind::I4), Column("USDatumVon", Kind::Date), TimeColumn("USZeitVon")});
        Add("Reich", {Column("Reich", Kind::Text), Column("ID_REICH", Kind::I4)});
        tables_.back().IsView = true;
    }

    const TableInfo* FindTable(std::string_view name) const override {
        for (const TableInfo& table : tables_) {
            if (SameName(table.Name, name)) return &table;
        }
        return nullptr;
    }

    void Add(std::string name, std::vector<ColumnInfo> columns) {
        TableInfo table;
        table.Name = std::move(name);
        table.Columns = std::move(columns);
        tables_.push_back(std::move(table));
    }

private:
    std::vector<TableInfo> tables_;
};

/// A second database with one report table, reachable as "other".
class SampleExternal : public ExternalSource {
public:
    SampleExternal() { tables_.Add("rpt_awaAuswertung", {Column("ID", Kind::I4), Column("TI", Kind::R4)}); }

    External Attach(const std::string& path) override {
        if (path.empty()) throw Error(ErrorNumber::FileNotFound, "no such file");
        AttachedPath = path;
        return {&tables_, "other"};
    }

    std::string AttachedPath;

private:
    SampleCatalogue tables_;
};

inline Translation Translated(std::string_view statement, ExternalSource* external = nullptr) {
    static const SampleCatalogue tables;
    Shape shape;
    ScanShape(statement, shape);
    return Translate(statement, shape, tables, external);
}

/// Number of the failure, 0 where there is none.
template <typename Work>
std::int32_t FailureOf(Work&& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace FX_Algen::store::dialect::testing
