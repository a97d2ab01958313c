#include "fxalgen/record/Digest.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace FX_Algen;
using namespace FX_Algen::cli;

namespace {

std::string OfFields(std::initializer_list<store::Value> fields) {
    Digest digest;
    for (const store::Value& field : fields) digest.AddField(field);
    return digest.Text();
}

TEST(Digest, FollowsThePublishedTestVectors) {
    // FNV-1a 64 bit as published with its definition: "" and "a" and "foobar".
    struct Case {
        std::string Text;
        std::string Digest;
    };
    const Case cases[] = {
        {"", "cbf29ce484222325"}, {"a", "af63dc4c8601ec8c"}, {"foobar", "85944171f73967e8"}};
    for (const Case& c : cases) {
        Digest digest;
        digest.AddBytes(c.Text);
        EXPECT_EQ(digest.Text(), c.Digest);
    }
}

TEST(Digest, TellsFieldsApart) {
    EXPECT_NE(OfFields({"ab", "c"}), OfFields({"a", "bc"}));
    EXPECT_NE(OfFields({store::Value(), ""}), OfFields({"", store::Value()}));
    EXPECT_NE(OfFields({"-"}), OfFields({store::Value()}));
    EXPECT_EQ(OfFields({"Grünalge", 2}), OfFields({"Grünalge", std::int16_t{2}}));
}

TEST(Digest, SeesTheLastBitOfA32BitFloat) {
    const float value = 12.00001F;
    EXPECT_NE(OfFields({value}), OfFields({std::nextafter(value, 13.0F)}));
}

}  // namespace
