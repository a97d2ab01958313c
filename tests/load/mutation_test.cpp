#include <random>

#include "LoadTest.h"
#include "store/load/TableFile.h"
#include "store/load/Tables.h"
#include "store/resources/Resources.h"

namespace FX_Algen::store {
namespace {

/// `text` with some bytes changed, dropped, doubled or cut off.
std::string Mutated(std::string text, std::mt19937& random) {
    using namespace std::string_view_literals;
    // Separators, ends, quotes, a byte 0, both halves of an umlaut and a byte that UTF-8 never has.
    constexpr std::string_view bytes = "\",;\n\r\t -.1\0\xC3\xA4\xFF"sv;
    const auto any = [&](std::size_t below) { return random() % below; };
    for (std::size_t changes = 1 + any(6); changes > 0 && !text.empty(); --changes) {
        const std::size_t at = any(text.size());
        switch (any(4)) {
            case 0:
                text[at] = bytes[any(bytes.size())];
                break;
            case 1:
                text.erase(at, 1 + any(5));
                break;
            case 2:
                text.insert(at, 1, bytes[any(bytes.size())]);
                break;
            default:
                if (any(20) == 0) text.resize(at);
        }
    }
    return text;
}

/// Whatever stands in a file, every row is either read or told, and every problem has its place.
TEST(TableFile, ReadsMutatedFilesToTheEndAndTellsWhereTheyAreWrong) {
    TestDatabase db;
    const auto tables = load::ReadTables(db.Engine());
    std::mt19937 random(20261120);  // the same sequence in every run
    std::size_t told = 0;
    for (const auto& resource : resources::demo()) {
        const std::string name(resource.name);
        const auto* table = load::FindTable(tables, name.substr(0, name.find('.')));
        ASSERT_NE(table, nullptr) << name;
        const std::string head(resource.text.substr(0, 2000));
        for (int i = 0; i < 60; ++i) {
            const std::string text = Mutated(head, random);
            const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
            std::vector<LoadProblem> problems;
            const load::TableFile file({name, text}, *table, problems);
            if (file.Usable()) {
                load::TableFile::Rows rows(file);
                for (load::Batch batch; rows.Next(batch, 7);) {
                    ASSERT_EQ(batch.Cells.size(), batch.Lines.size() * file.Columns().size());
                    std::move(batch.Problems.begin(), batch.Problems.end(), std::back_inserter(problems));
                }
                EXPECT_EQ(rows.Position(), load::WithoutMark(text).size());
            }
            for (const auto& problem : problems) {
                EXPECT_LE(problem.Line, lines) << problem.Reason;
                EXPECT_FALSE(problem.Reason.empty());
                EXPECT_FALSE(load::FirstBadByte(problem.Reason + problem.Column)) << name;
            }
            told += problems.size();
        }
    }
    EXPECT_GT(told, 0U);
}

}  // namespace
}  // namespace FX_Algen::store
