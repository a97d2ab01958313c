#include "store/sqlite/Failure.h"

#include <gtest/gtest.h>

namespace FX_Algen::store::sqlite {
namespace {

TEST(Failure, OfTheFileIsTheNumberOfNoDatabaseWithItsCause) {
    struct Case {
        int Code;
        const char* Words;
    };
    const Case cases[] = {
        {SQLITE_NOTADB, "not a database"},
        {SQLITE_CORRUPT, "damaged"},
        {SQLITE_CORRUPT_INDEX, "damaged"},
        {SQLITE_CANTOPEN, "cannot be opened"},
        {SQLITE_READONLY, "read-only"},
        {SQLITE_READONLY_DBMOVED, "read-only"},
        {SQLITE_BUSY, "in use by another program"},
        {SQLITE_BUSY_SNAPSHOT, "in use by another program"},
        {SQLITE_LOCKED, "in use by another program"},
        {SQLITE_FULL, "disk is full"},
        {SQLITE_IOERR_WRITE, "disk cannot be read or written"},
        {SQLITE_PERM, "may not be used"},
    };
    for (const Case& c : cases) {
        const Error error = FailureOf(c.Code, "Störung", "SELECT 1");
        EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase) << c.Words;
        EXPECT_NE(error.Description().find(c.Words), std::string::npos) << error.Description();
        EXPECT_NE(error.Description().find("Störung"), std::string::npos) << error.Description();
        EXPECT_EQ(error.Translated(), "SELECT 1");
    }
}

TEST(Failure, OfAStatementThatIsTooDeepSaysSo) {
    for (const char* message :
         {"parser stack overflow", "Expression tree is too large (maximum depth 1000)"}) {
        const Error error = FailureOf(SQLITE_ERROR, message, "");
        EXPECT_EQ(error.Number(), ErrorNumber::SyntaxError);
        EXPECT_NE(error.Description().find("nested too deeply"), std::string::npos) << error.Description();
    }
}

}  // namespace
}  // namespace FX_Algen::store::sqlite
