#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <sstream>

#include "AutomateDatabase.h"
#include "Conversation.h"
#include "SampleEntry.h"

// What docs/hosts.md tells of the bridge is what it does.

namespace FX_Algen::cli {
namespace {

TEST_F(AutomateDatabase, ConversationOfTheHostsPageRunsAsWritten) {
    AddSample();
    std::ifstream page(std::string(FX_SOURCE_DIR) + "/docs/hosts.md");
    std::string requests;
    std::string expected;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("> {")) requests += line.substr(2) + "\n";
        if (line.starts_with("< {")) expected += line.substr(2) + "\n";
    }
    const std::string name = "river.db";
    ASSERT_NE(requests.find(name), std::string::npos);
    requests.replace(requests.find(name), name.size(), db.Path());
    std::istringstream in(requests);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Automate(in, out, err), 0);
    EXPECT_EQ(out.str(), expected);
}

TEST(HostsPage, ListsMembersAndOperationsInInterfaceOrder) {
    std::ifstream page(std::string(FX_SOURCE_DIR) + "/docs/hosts.md");
    std::map<std::string, std::vector<std::string>> told;
    std::string className;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## ")) className.clear();
        if (line.starts_with("### `")) className = line.substr(5, line.find('`', 5) - 5);
        if (!className.empty() && line.starts_with("| `"))
            told[className].push_back(line.substr(3, line.find('`', 3) - 3));
    }
    for (const std::string name : {"AL_PS", "AL_Katalog", "AL_PS_Grafik"}) {
        const auto object = rpc::MakeObject(name);
        std::vector<std::string> known;
        for (const auto& member : object->Members()) known.push_back(member.Name);
        for (const auto& operation : object->Operations()) known.push_back(operation.Name);
        EXPECT_EQ(told[name], known) << name;
    }
}

/// The words in code in the first column of a table whose head begins so; a cell may hold several.
std::vector<std::string> FirstColumn(const std::string& head) {
    std::ifstream page(std::string(FX_SOURCE_DIR) + "/docs/hosts.md");
    std::vector<std::string> words;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with(head)) inside = true;
        if (!line.starts_with("|")) inside = false;
        if (!inside) continue;
        const auto cell = line.substr(1, line.find('|', 1) - 1);
        for (auto at = cell.find('`'); at != std::string::npos; at = cell.find('`', at + 1)) {
            const auto end = cell.find('`', at + 1);
            words.push_back(cell.substr(at + 1, end - at - 1));
            at = end;
        }
    }
    return words;
}

TEST(HostsPage, TellsOfNoMethodThatIsNotThere) {
    const auto methods = FirstColumn("| Method |");
    ASSERT_THAT(methods, testing::IsSupersetOf({"database.open", "dialog.shown", "form.act"}));
    OwnDialogue talk;
    for (const auto& method : methods)
        EXPECT_NE(CodeOf(talk.Ask(method, {{"x", 1}})), rpc::Code::MethodNotFound) << method;
}

TEST_F(AutomateDatabase, HostsPageTellsOfNoActionThatIsNotThere) {
    const auto actions = FirstColumn("| `action` |");
    ASSERT_THAT(actions, testing::IsSupersetOf({"click", "leave", "cell", "deactivate", "close"}));
    OwnDialogue talk;
    SampleEntry entry(talk, 10000);
    AddSample();
    entry.OpenAlgae(db.Path(), 17, "");
    for (const auto& action : actions) {
        if (action == "action") continue;  // the head of the column
        const auto answer =
            talk.Ask("form.act", {{"form", entry.Form()}, {"control", "lblPSBez"}, {"action", action}});
        EXPECT_THAT(MessageOf(answer), testing::Not(testing::HasSubstr("no action"))) << answer;
    }
}

}  // namespace
}  // namespace FX_Algen::cli
