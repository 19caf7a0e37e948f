#include "tests/doctor/doctor_support.h"

#include "tests/support/pak_writer_data.h"

#include <filesystem>
#include <sstream>

namespace rd::test {

namespace fs = std::filesystem;

std::vector<std::string> option(const std::string& name, const std::string& type, const std::string& key,
                                const std::string& parameter, const std::string& checked,
                                const std::string& unchecked, const std::string& where,
                                const std::string& help) {
    return {name, type,
            key + "\t" + parameter + "\t" + checked + "\t" + unchecked + "\t" + where + "\t" + help};
}

std::vector<std::string> flag(const std::string& name, const std::string& checked,
                              const std::string& unchecked) {
    return {name, "", "<DMFlags>\t" + checked + "\t" + unchecked + "\tWhat " + name + " does"};
}

std::vector<std::string> concat(std::initializer_list<std::vector<std::string>> parts) {
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::string fileName(const std::string& slashed) {
    std::string name = slashed;
    for (auto& c : name)
        if (c == '/')
            c = static_cast<char>(fs::path::preferred_separator);
    return name;
}

std::string describe(const std::vector<DoctorFinding>& found) {
    std::ostringstream text;
    for (const auto& f : found)
        text << "\n  " << severityName(f.severity) << " " << f.file << ":"
             << (f.line ? std::to_string(*f.line) : std::string("-")) << " " << f.message;
    return text.str();
}

testing::AssertionResult onlyFinding(const std::vector<DoctorFinding>& found, Severity severity,
                                     const std::string& slashedFile, std::optional<std::size_t> line,
                                     const std::vector<std::string>& fragments) {
    if (found.size() != 1)
        return testing::AssertionFailure() << found.size() << " findings:" << describe(found);
    const DoctorFinding& f = found.front();
    if (f.severity != severity || f.file != fileName(slashedFile) || f.line != line)
        return testing::AssertionFailure() << "another finding:" << describe(found);
    for (const auto& fragment : fragments)
        if (f.message.find(fragment) == std::string::npos)
            return testing::AssertionFailure()
                   << "the message lacks \"" << fragment << "\":" << describe(found);
    return testing::AssertionSuccess();
}

std::string DoctorWorkspace::at(const std::string& relative, bool trailingSeparator) const {
    std::string text = (installation.root() / fs::path(relative)).make_preferred().string();
    if (trailingSeparator)
        text += static_cast<char>(fs::path::preferred_separator);
    return text;
}

void DoctorWorkspace::lines(const std::string& relative, const std::vector<std::string>& content) const {
    ws.writeLines(relative, content);
}

std::vector<std::string> DoctorWorkspace::setupLines() const {
    return {"Quake2", "Eraser",       " 0 ",   "bots.cfg",     " 0 ",        "chat.txt", " 2 ", "maps.txt",
            " 1 ",    "autoexec.cfg", " 1 ",   "launcher.cfg", " 0 ",        "tw.cfg",   " 0 ", " 1 ",
            "routes", "*.zipped",     "skins", "eraser.txt",   "male/grunt", " 0 ",      ""};
}

std::vector<std::string> DoctorWorkspace::recordLines() const {
    return {at("quake2", true),
            at("quake2/baseq2/maps", true),
            "quake2.exe",
            "",
            at("quake2/baseq2/players"),
            "_i.pcx",
            "",
            "tris.md2",
            " 0 ",
            " 1 ",
            " 1 ",
            at("quake2/baseq2/maps", true)};
}

void DoctorWorkspace::setupLine(std::size_t line, const std::string& text) const {
    auto content = setupLines();
    content.at(line - 1) = text;
    lines("Plug-Ins/Eraser/Setup.cfg", content);
}

void DoctorWorkspace::recordLine(std::size_t line, const std::string& text) const {
    auto content = recordLines();
    content.at(line - 1) = text;
    lines("Game-Paths/Quake2/Quake2.Gme", content);
}

DoctorWorkspace::DoctorWorkspace() {
    // The installation: maps in an archive and one loose map, two player models.
    installation.folder("quake2/baseq2/maps");
    writePak(installation.path("quake2/baseq2/pak0.pak"),
             {{"maps/q2dm1.bsp", "IBSP"}, {"maps/q2dm2.bsp", "IBSP"}, {"pics/colormap.pcx", "PCX"}});
    installation.write("quake2/baseq2/maps/Loose1.bsp", "IBSP");
    installation.folder("quake2/baseq2/players/male");
    installation.folder("quake2/baseq2/players/female");
    installation.write("quake2/quake2.exe", "MZ");

    lines("Team A/profile.cfg", {"eraser", "skill=3"});

    lines("Plug-Ins/Eraser/Setup.cfg", setupLines());
    lines("Plug-Ins/Eraser/ChatFiles.cfg", {"insults.txt"});
    lines("Plug-Ins/Eraser/Skills.cfg", {"2", "Novice", "Expert"});
    lines("Plug-Ins/Eraser/ExecCommands.cfg", {"set deathmatch 1", "Play deathmatch rules"});
    lines("Plug-Ins/Eraser/Options.cfg",
          concat({{"[Bots]"},
                  option("Bot Skill", "7", "BotSk", "skill.val", "+set skill %s", "", "0", "How well")}));
    lines("Plug-Ins/Eraser/DMflags.cfg", concat({{"[Eraser]"}, flag("Weapons Stay", "4", "0")}));

    lines("Game-Paths/Quake2/Quake2.Gme", recordLines());
    lines("Game-Paths/Quake2/Template.cfg",
          {"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players", "_i.pcx", "",
           "tris.md2", " 0 ", " 1 ", " 1 ", "<PATH>baseq2\\maps"});
    lines("Game-Paths/Quake2/ExecCommands.cfg", {"set fraglimit 30", "End the match at 30 frags"});
    lines("Game-Paths/Quake2/Options.cfg",
          concat(
              {{"[Game Play]"},
               option("Deathmatch", "0", "Deathm", "", "+set deathmatch 1", "+set deathmatch 0", "0", "Play"),
               option("Frag Limit", "3", "FragL", "0:500", "+set fraglimit %s", "", "0", "Frags to win"),
               option("Skill", "7", "Skill", "skill.val", "+set skill %s", "", "1", "How hard"),
               option("Start Map", "6", "Start", "maps.lst", "+map %s", "", "2", "The first map"),
               option("Game Options", "9", "GameO", "", "Game Play", "", "0", "Show the game options")}));
    lines("Game-Paths/Quake2/Opt-User.cfg",
          concat({{"[My Settings]"},
                  option("Game Folder", "11", "GameD", "1", "+set game %s", "", "0", "Mod")}));
    lines(
        "Game-Paths/Quake2/DMflags.cfg",
        concat({{"[Items]"}, flag("No Health", "1", "0"), {"[Players]"}, flag("Falling Damage", "0", "8")}));
    lines("Game-Paths/Quake2/DMcustom.cfg", flag("Force Team Join", "131072", "0"));
    lines("Game-Paths/Quake2/skill.val", {"Easy", "0", "Hard", "2"});
    lines("Game-Paths/Quake2/maps.lst", {"q2dm1", "q2dm2"});
    lines("Game-Paths/Quake2/Deathmatch.map", {"[V2]", "q2dm1", "The Edge", "Loose1", "A loose map"});
    lines("Game-Paths/Quake2/Classic.map", {"q2dm2"});
    lines("Game-Paths/Quake2/q2dm1.ra2", {"Upper Deck", "Rail Room"});
    lines("Game-Paths/Quake2/Female.cfg", {"female"});
}

} // namespace rd::test
