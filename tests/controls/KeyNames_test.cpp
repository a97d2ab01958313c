#include "controls/KeyNames.h"

#include <gmock/gmock.h>

namespace FX_Algen::controls::test {
namespace {

struct NamedKey {
    const char* Text;
    const char* Name;
    const char* Held;
};

void PrintTo(const NamedKey& key, std::ostream* out) { *out << key.Text; }

class KeyNames : public testing::TestWithParam<NamedKey> {};

TEST_P(KeyNames, AreRead) {
    const auto key = ReadKey(GetParam().Text);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->Name, GetParam().Name);
    const auto held = std::string(key->Ctrl ? "C" : "") + (key->Alt ? "A" : "") + (key->Shift ? "S" : "");
    EXPECT_EQ(held, GetParam().Held);
}

INSTANTIATE_TEST_SUITE_P(Alone, KeyNames,
                         testing::Values(NamedKey{"Enter", "Enter", ""}, NamedKey{"enter", "Enter", ""},
                                         NamedKey{"RETURN", "Enter", ""}, NamedKey{"Esc", "Escape", ""},
                                         NamedKey{"pgdn", "PageDown", ""}, NamedKey{"ArrowUp", "Up", ""},
                                         NamedKey{"F12", "F12", ""}, NamedKey{" ", "Space", ""}));
// A character is one key, whatever its case; "+" is one too.
INSTANTIATE_TEST_SUITE_P(Characters, KeyNames,
                         testing::Values(NamedKey{"n", "n", ""}, NamedKey{"N", "N", ""},
                                         NamedKey{"Ä", "Ä", ""}, NamedKey{"+", "+", ""},
                                         NamedKey{"Ctrl++", "+", "C"}));
INSTANTIATE_TEST_SUITE_P(Held, KeyNames,
                         testing::Values(NamedKey{"Shift+Enter", "Enter", "S"},
                                         NamedKey{"ctrl+alt+shift+Del", "Delete", "CAS"},
                                         NamedKey{"Ctrl+ö", "ö", "C"}));

TEST(KeyNames, WhatIsNoKeyIsNone) {
    for (const auto* text : {"", "ab", "äö", "F13", "Entr", "Strg+N", "Shift+", "+Enter", "Enter+"})
        EXPECT_FALSE(ReadKey(text)) << text;
}

}  // namespace
}  // namespace FX_Algen::controls::test
