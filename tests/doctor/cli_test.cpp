// rosterdesk-cli doctor: its JSON, its exit status, its order, and the two demo workspaces.

#include "tests/doctor/doctor_support.h"
#include "tests/support/process_data.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

namespace cli_test {

using namespace rd;
using rd::test::concat;
using rd::test::DoctorWorkspace;
using rd::test::fileName;
using rd::test::option;
using rd::test::ProgramRun;
using rd::test::runProgram;

namespace fs = std::filesystem;

ProgramRun doctor(const fs::path& root) {
    return runProgram(ROSTERDESK_CLI, {"--root", root.string(), "doctor"});
}

// Every file of a folder, with its bytes.
std::map<std::string, std::string> snapshot(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            files[entry.path().string()] = rd::test::readBytes(entry.path());
    return files;
}

TEST(DoctorCli, HelpListsTheDoctorUnderTheProgramsName) {
    const ProgramRun run = runProgram(ROSTERDESK_CLI, {"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Usage: rosterdesk-cli [OPTIONS] SUBCOMMAND"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("  doctor "), std::string::npos) << run.out;
}

TEST(DoctorCli, CleanWorkspacePrintsAnEmptyArrayWithStatusZero) {
    DoctorWorkspace d;
    const ProgramRun run = doctor(d.ws.root());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.err, "");
}

TEST(DoctorCli, FindingsAreObjectsOfSeverityFileLineAndMessageWithStatusOne) {
    DoctorWorkspace d;
    d.lines("Team B/profile.cfg", {"Ghost"});
    d.ws.write("Scratch/notes.txt", "x\r\n");
    const ProgramRun run = doctor(d.ws.root());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const nlohmann::ordered_json json = nlohmann::ordered_json::parse(run.out);
    ASSERT_TRUE(json.is_array());
    ASSERT_EQ(json.size(), 2u) << run.out;
    std::vector<std::string> keys;
    for (const auto& [key, value] : json[0].items())
        keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"severity", "file", "line", "message"}));
    EXPECT_EQ(json[0]["severity"], "warning");
    EXPECT_EQ(json[0]["file"], fileName("Scratch/profile.cfg"));
    EXPECT_TRUE(json[0]["line"].is_null());
    EXPECT_EQ(json[1]["severity"], "error");
    EXPECT_EQ(json[1]["file"], fileName("Team B/profile.cfg"));
    EXPECT_EQ(json[1]["line"], 1);
    EXPECT_EQ(
        json[1]["message"],
        "the profile belongs to the bot \"Ghost\", which is not a recognised plug-in bot (no such folder in "
        "Plug-Ins)");
}

#ifdef _WIN32
TEST(DoctorCli, OnWindowsFilesAreNamedWithBackslashes) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Female.cfg", {"Jezebel"});
    const ProgramRun run = doctor(d.ws.root());
    const auto json = nlohmann::json::parse(run.out);
    ASSERT_EQ(json.size(), 1u) << run.out;
    EXPECT_EQ(json[0]["file"], "Game-Paths\\Quake2\\Female.cfg");
}
#endif

TEST(DoctorCli, FindingsAreOrderedByFileInListingOrderThenByLine) {
    DoctorWorkspace d;
    // Found in this order: profiles, then bots, then games; the order printed is the listing's.
    d.lines("zeta/profile.cfg", {"Ghost"});
    d.lines("Alpha/profile.cfg", {"Ghost"});
    auto setup = d.setupLines();
    setup[14] = setup[15] = "9"; // lines 15 and 16
    d.lines("Plug-Ins/Eraser/Setup.cfg", setup);
    d.lines("Game-Paths/Quake2/Opt-User.cfg", concat({{"[Mine]"},
                                                      option("A", "0", "", "", "+a", "", "5", ""),
                                                      option("B", "99", "B", "", "+b", "", "0", "")}));
    d.ws.write("Game-Paths/Quake2/maps.lst", "q2dm1\nq2dm2"); // LF alone, and no terminator
    const auto found = d.diagnose();
    std::vector<std::pair<std::string, std::size_t>> order;
    for (const auto& f : found)
        order.emplace_back(f.file, f.line.value_or(0));
    EXPECT_EQ(order, (std::vector<std::pair<std::string, std::size_t>>{
                         {"Alpha" + fileName("/profile.cfg"), 1},
                         {fileName("Game-Paths/Quake2/maps.lst"), 1},
                         {fileName("Game-Paths/Quake2/maps.lst"), 2},
                         {fileName("Game-Paths/Quake2/Opt-User.cfg"), 4},
                         {fileName("Game-Paths/Quake2/Opt-User.cfg"), 4},
                         {fileName("Game-Paths/Quake2/Opt-User.cfg"), 6},
                         {fileName("Plug-Ins/Eraser/Setup.cfg"), 15},
                         {fileName("Plug-Ins/Eraser/Setup.cfg"), 16},
                         {"zeta" + fileName("/profile.cfg"), 1}}))
        << rd::test::describe(found);
    // Two findings on one line keep the order of the checks: the key before the Where.
    EXPECT_NE(found[3].message.find("has no key"), std::string::npos);
    EXPECT_NE(found[4].message.find("Where"), std::string::npos);
}

TEST(DoctorCli, AWorkspaceThatIsNotThereIsAUsageError) {
    DoctorWorkspace d;
    const fs::path missing = d.ws.path("nowhere");
    const ProgramRun run = doctor(missing);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "Path not found: " + missing.string() + "\n");
}

TEST(DoctorCli, ChangesNothingOnDisk) {
    DoctorWorkspace d;
    d.setupLine(22, "");
    d.ws.write("Game-Paths/Quake2/maps.lst", "q2dm1\nq2dm2");
    d.lines("Game-Paths/Quake2/Deathmatch.map", {"q2dm9"});
    const auto before = snapshot(d.ws.root());
    const ProgramRun run = doctor(d.ws.root());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(snapshot(d.ws.root()), before);
}

TEST(DoctorCli, TheProgramsFolderIsTheWorkspaceWhenNoRootIsGiven) {
    DoctorWorkspace d;
    d.lines("Team B/profile.cfg", {"Ghost"});
    fs::path program = d.ws.path("rosterdesk-cli");
    program += fs::path(ROSTERDESK_CLI).extension();
    fs::copy_file(ROSTERDESK_CLI, program);
    fs::permissions(program, fs::perms::owner_exec, fs::perm_options::add);
    const ProgramRun run = runProgram(program.string(), {"doctor"}, {{"ROSTERDESK_ROOT", ""}});
    EXPECT_EQ(run.status, 1) << run.err;
    const auto json = nlohmann::json::parse(run.out);
    ASSERT_EQ(json.size(), 1u) << run.out;
    EXPECT_EQ(json[0]["file"], fileName("Team B/profile.cfg"));
}

TEST(DoctorDemo, TheDemoWorkspaceIsClean) {
    const fs::path demo = fs::path(ROSTERDESK_DEMO) / "workspace";
    ASSERT_TRUE(fs::is_directory(demo)) << demo;
    const ProgramRun run = doctor(demo);
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.status, 0);
}

// Every kind of finding, by a piece of its message; the broken demo shows each at least once.
TEST(DoctorDemo, TheBrokenDemoShowsEveryKindOfFinding) {
    const fs::path broken = fs::path(ROSTERDESK_DEMO) / "broken";
    ASSERT_TRUE(fs::is_directory(broken)) << broken;
    const ProgramRun run = doctor(broken);
    EXPECT_EQ(run.status, 1);
    const auto json = nlohmann::json::parse(run.out);
    // {the end of the file's name ("" for any file), a piece of the message}
    const std::vector<std::pair<std::string, std::string>> kinds = {
        {"profile.cfg", "which is not a recognised plug-in bot"},
        {"profile.cfg", "the first line names no bot"},
        {"profile.cfg", "has no profile.cfg"},
        {"Setup.cfg", "has no Setup.cfg"},
        {"Setup.cfg", "which has no folder in Game-Paths"},
        {"Setup.cfg", "the first line names no game"},
        {"Setup.cfg", "before line 22"},
        {"Setup.cfg", "the target folder of the"},
        {"Setup.cfg", "the AutoExec handling is"},
        {"Setup.cfg", "the chat handling is"},
        {"Setup.cfg", "the bot config file handling is"},
        {".Gme", "has no record"},
        {".Gme", "the game's program folder"},
        {".Gme", "the maps folder"},
        {".Gme", "the models folder"},
        {".Gme", "the record names no"},
        {".Gme", "is not a number"},
        {"", "is not one of the start types 0 to 5"},
        {"Template.cfg", "is not a number"},
        {"", "keys must differ without regard to case"},
        {"", "TABs, not the five"},
        {"", "the file ends inside the option"},
        {"", "has no key"},
        {"", "not one of the types 0 to 11"},
        {"", "the option editor refuses it"},
        {"", "names no list file"},
        {"", "the list file"},
        {"", "enables the category"},
        {"", "the Where of"},
        {"", "is not a whole number"},
        {"", "are both zero"},
        {"", "are both non-zero"},
        {"", "the file ends inside the flag"},
        {".map", "is not installed: it is in none"},
        {".ra2", "these are arenas of the map"},
        {"Female.cfg", "has no folder in the models folder"},
        {".val", "has no value line"},
        {"", "line feed alone"},
        {"", "carriage return without a line feed"},
        {"", "the last line has no CR LF"},
        {".rdsave", "a temporary file left by an interrupted save"},
    };
    const auto endsWith = [](const std::string& text, const std::string& end) {
        return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
    };
    std::set<std::size_t> seen;
    for (const auto& finding : json)
        for (std::size_t i = 0; i < kinds.size(); ++i)
            if (endsWith(finding["file"].get<std::string>(), kinds[i].first) &&
                finding["message"].get<std::string>().find(kinds[i].second) != std::string::npos)
                seen.insert(i);
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_TRUE(seen.contains(i)) << "no finding of the kind \"" << kinds[i].second
                                      << "\" in a file ending in \"" << kinds[i].first << "\":\n"
                                      << json.dump(2);
    bool error = false, warning = false;
    for (const auto& finding : json) {
        error = error || finding["severity"] == "error";
        warning = warning || finding["severity"] == "warning";
    }
    EXPECT_TRUE(error && warning);
}

} // namespace cli_test
