// The command-line views of definitions, lists, categories, arenas and archives, run through
// the built rosterdesk-cli on a temporary workspace.

#include "tests/support/pak_writer_data.h"
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace rd::cli_test {
namespace {

using nlohmann::json;
using test::buildPak;
using test::buildRawPak;
using test::crlf;
using test::TempWorkspace;

using CliRun = test::ProgramRun;

CliRun cli(const TempWorkspace& ws, const std::vector<std::string>& args) {
    std::vector<std::string> all = {"--root", ws.root().string()};
    all.insert(all.end(), args.begin(), args.end());
    return test::runProgram(ROSTERDESK_CLI, all);
}

TEST(CliOptions, ShowPrintsCategoryAndOptionRowsAsStored) {
    TempWorkspace ws;
    ws.writeLines(
        "Game-Paths/Quake2/Options.cfg",
        {"[Game Play]", "Deathmatch", "0", "Deathm\t\t+set deathmatch 1\t+set deathmatch 0\t0\tTurn it on"});
    const CliRun run = cli(ws, {"show", "options", ws.path("Game-Paths/Quake2/Options.cfg").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"([{"category":"Game Play"},
        {"name":"Deathmatch","checked":"+set deathmatch 1","unchecked":"+set deathmatch 0","help":"Turn it on",
         "type":"0","parameter":"","where":"0","key":"Deathm"}])"));
    EXPECT_EQ(run.out.back(), '\n');
}

TEST(CliOptions, ResaveNormalisesCategoryBracketsAndPrintsNull) {
    TempWorkspace ws;
    ws.writeLines("Opt-User.cfg", {"[[Bots]]", "Skill", "3", "Skill\t1:10"});
    const CliRun run = cli(ws, {"resave", "options", ws.path("Opt-User.cfg").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json(nullptr));
    EXPECT_EQ(ws.read("Opt-User.cfg"), crlf({"[Bots]", "Skill", "3", "Skill\t1:10\t\t\t\t"}));
}

TEST(CliOptions, MissingFileIsStatusTwoWithNothingOnOutput) {
    TempWorkspace ws;
    const CliRun run = cli(ws, {"show", "options", ws.path("Options.cfg").string()});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err, "");
}

TEST(CliFlags, ShowPrintsFlagRows) {
    TempWorkspace ws;
    ws.writeLines("DMflags.cfg", {"[Items]", "Weapons Stay", "", "<DMFlags>\t4\t0\tWeapons stay"});
    const CliRun run = cli(ws, {"show", "dmflags", ws.path("DMflags.cfg").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"([{"category":"Items"},
        {"name":"Weapons Stay","checked":"4","unchecked":"0","bitmap":"<DMFlags>","help":"Weapons stay"}])"));
}

TEST(CliFlags, ResaveWritesEmptyThirdLineAsThreeTabs) {
    TempWorkspace ws;
    ws.writeLines("DMcustom.cfg", {"Bare", "x", ""});
    ASSERT_EQ(cli(ws, {"resave", "dmflags", ws.path("DMcustom.cfg").string()}).status, 0);
    EXPECT_EQ(ws.read("DMcustom.cfg"), "Bare\r\n\r\n\t\t\t\r\n");
}

TEST(CliLists, ValueListShowsItemsAndKind) {
    TempWorkspace ws;
    ws.writeLines("weapons.VAL", {"Railgun", "17", "BFG"});
    const CliRun run = cli(ws, {"show", "list", ws.path("weapons.VAL").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"({"valueList":true,"items":[{"text":"Railgun","value":"17"},
        {"text":"BFG","value":"BFG"}]})"));
}

TEST(CliLists, TextListValueIsItsText) {
    TempWorkspace ws;
    ws.writeLines("maps.lst", {"q2dm1"});
    const CliRun run = cli(ws, {"show", "list", ws.path("maps.lst").string()});
    EXPECT_EQ(run.json(), json::parse(R"({"valueList":false,"items":[{"text":"q2dm1","value":"q2dm1"}]})"));
}

TEST(CliLists, ResaveOfAnEmptyListLeavesTheFileAlone) {
    TempWorkspace ws;
    ws.write("empty.val", "");
    ASSERT_EQ(cli(ws, {"resave", "list", ws.path("empty.val").string()}).status, 0);
    EXPECT_EQ(ws.read("empty.val"), "");
    ws.writeLines("odd.val", {"a", "1", "b"});
    ASSERT_EQ(cli(ws, {"resave", "list", ws.path("odd.val").string()}).status, 0);
    EXPECT_EQ(ws.read("odd.val"), crlf({"a", "1", "b", "b"}));
}

TEST(CliCategories, ShowAndResaveConvertTheOldLayout) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/old.map", {"q2dm1", "q2dm2"});
    const std::string path = ws.path("Game-Paths/Quake2/old.map").string();
    const CliRun run = cli(ws, {"show", "category", path});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"({"arena":false,"maps":[{"name":"q2dm1","title":"q2dm1"},
        {"name":"q2dm2","title":"q2dm2"}]})"));
    ASSERT_EQ(cli(ws, {"resave", "category", path}).status, 0);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/old.map"), crlf({"[V2]", "q2dm1", "q2dm1", "q2dm2", "q2dm2"}));
}

TEST(CliCategories, CategoriesOfAGameAndOfAMissingGame) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/DM.MAP", {"[V2]"});
    ws.writeLines("Game-Paths/Quake2/ctf.map", {"[ARENA]"});
    const CliRun run = cli(ws, {"categories", "Quake2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"(["ctf","DM"])"));
    const CliRun missing = cli(ws, {"categories", "Nope"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.out, "");
}

TEST(CliArenas, ShowResaveAndArenaMaps) {
    TempWorkspace ws;
    ws.write("Game-Paths/Quake2/q2dm1.ra2", "a\r\n\r\nb");
    const std::string path = ws.path("Game-Paths/Quake2/q2dm1.ra2").string();
    const CliRun run = cli(ws, {"show", "arenas", path});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"(["a","","b"])"));
    ASSERT_EQ(cli(ws, {"resave", "arenas", path}).status, 0);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/q2dm1.ra2"), "a\r\n\r\nb\r\n");
    EXPECT_EQ(cli(ws, {"arena-maps", "quake2"}).json(), json::parse(R"(["q2dm1"])"));
}

TEST(CliPak, MapsOnlyByDefaultEveryEntryWholeWithAll) {
    TempWorkspace ws;
    ws.write("pak0.pak", buildPak({{"maps/q2dm1.bsp", "x"}, {"README.TXT", "y"}}));
    const std::string path = ws.path("pak0.pak").string();
    const CliRun maps = cli(ws, {"show", "pak", path});
    ASSERT_EQ(maps.status, 0) << maps.err;
    EXPECT_EQ(maps.json(), json::parse(R"({"complete":true,"names":["q2dm1"]})"));
    const CliRun all = cli(ws, {"show", "pak", path, "--all"});
    ASSERT_EQ(all.status, 0) << all.err;
    const json doc = all.json();
    ASSERT_EQ(doc["names"].size(), 2u);
    std::string padded = "readme.txt";
    padded.resize(56, '\0');
    EXPECT_EQ(doc["names"][1].get<std::string>(), padded);
    EXPECT_NE(all.out.find("\\u0000"), std::string::npos);
}

TEST(CliPak, UnreachableDirectoryIsIncomplete) {
    TempWorkspace ws;
    ws.write("bad.pak", buildRawPak("PACK", -12, 64, "", 12));
    const CliRun run = cli(ws, {"show", "pak", ws.path("bad.pak").string()});
    EXPECT_EQ(run.json(), json::parse(R"({"complete":false,"names":[]})"));
}

TEST(CliPak, PakCannotBeResaved) {
    TempWorkspace ws;
    ws.write("pak0.pak", buildPak({}));
    EXPECT_EQ(cli(ws, {"resave", "pak", ws.path("pak0.pak").string()}).status, 2);
}

TEST(CliCatalogue, RowsInTheAddMapOrder) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                  {ws.path("q2").string(), ws.path("q2/baseq2/maps").string()});
    ws.write("q2/pak0.pak", buildPak({{"maps/q2ctf1.bsp", ""}}));
    ws.write("q2/baseq2/pak0.pak", buildPak({{"maps/base1.bsp", ""}}));
    ws.write("q2/baseq2/maps/Mine.BSP", "");
    const CliRun run = cli(ws, {"catalogue", "Quake2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"([{"name":"q2ctf1","source":"Quake2 pak0.pak"},
        {"name":"q2ctf1","source":"CTF pak0.pak"},{"name":"base1","source":"BaseQ2 pak0.pak"},
        {"name":"Mine","source":"Custom Maps"}])"));
}

TEST(CliCatalogue, MissingRecordIsStatusTwoWithCouldNotFind) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const CliRun run = cli(ws, {"catalogue", "Quake2"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              "Could not find " + ws.path("Game-Paths/Quake2/Quake2.Gme").make_preferred().string() + "\n");
}

TEST(CliRules, MakeKeyReadsTheDefinitionFile) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"Skill Level", "3", "Skill\t1:10\t\t\t0\t"});
    EXPECT_EQ(cli(ws, {"make-key", "Skill Level", ws.path("Options.cfg").string()}).json(), json("SkillL"));
    const CliRun missing = cli(ws, {"make-key", "Skill Level", ws.path("none.cfg").string()});
    EXPECT_EQ(missing.status, 0);
    EXPECT_EQ(missing.json(), json("Skill"));
}

TEST(CliRules, NumberRangeSwapsAndRefuses) {
    TempWorkspace ws;
    const CliRun swapped = cli(ws, {"number-range", "10:1"});
    EXPECT_EQ(swapped.status, 0);
    EXPECT_EQ(swapped.json(), json("1:10"));
    const CliRun refused = cli(ws, {"number-range", "5:-"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.json(), json("5:-"));
    EXPECT_NE(refused.err.find("Incorrect format - this needs to be : "), std::string::npos);
    const CliRun negative = cli(ws, {"number-range", "-1:-9"});
    EXPECT_EQ(negative.json(), json("-9:-1"));
}

TEST(CliRules, FormatRangeWritesOrLeavesUnchanged) {
    TempWorkspace ws;
    EXPECT_EQ(cli(ws, {"format-range", "1.5", "10", "2"}).json(), json("1.50:10.00"));
    EXPECT_EQ(cli(ws, {"format-range", "10", "1", "0"}).json(), json("1:10"));
    const CliRun unchanged = cli(ws, {"format-range", "abc", "1", "0"});
    EXPECT_EQ(unchanged.status, 0);
    EXPECT_EQ(unchanged.json(), json(nullptr));
}

TEST(CliRules, WrongArgumentCountIsAUsageError) {
    TempWorkspace ws;
    const CliRun run = cli(ws, {"format-range", "1", "2"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
}

TEST(CliText, CodePageBytesComeOutAsUtf8) {
    TempWorkspace ws;
    ws.writeLines("a.lst", {std::string("Caf\xE9 \x80")});
    const CliRun run = cli(ws, {"show", "list", ws.path("a.lst").string()});
    EXPECT_EQ(run.json()["items"][0]["text"].get<std::string>(), "Caf\xC3\xA9 \xE2\x82\xAC");
}

} // namespace
} // namespace rd::cli_test
