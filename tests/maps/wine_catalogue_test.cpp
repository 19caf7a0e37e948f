// The installed-maps catalogue of a launcher installed under Wine: its records hold drive paths
// (C:\quake2\), which resolve through the prefix's dosdevices links.

#include "maps/mapcard.h"
#include "maps/pak.h"
#include "tests/support/bsp_writer_data.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/wine_data.h"

#include <gtest/gtest.h>

namespace wine_catalogue_test {

using namespace rd;
using rd::test::buildPak;
using rd::test::FakeWinePrefix;

#ifndef _WIN32

// Quake 2 in drive_c, in other letter cases than the record writes: archives in the main folder
// and in baseq2, loose maps in baseq2/maps.
struct Installation : FakeWinePrefix {
    Installation() {
        write("Quake2/pak0.pak", buildPak({{"maps/q2ctf1.bsp", "B"}}));
        write("Quake2/BaseQ2/PAK0.PAK", buildPak({{"maps/q2dm1.bsp", "B"}, {"maps/q2dm2.bsp", "B"}}));
        write("Quake2/BaseQ2/Maps/Arena.bsp", "");
    }
    void record(const std::string& main, const std::string& maps) const {
        writeLines("Tarnwick/Game-Paths/Quake2/Quake2.Gme", {main, maps, "quake2.exe"});
    }
};

const std::vector<CatalogueRow> kRows{{"q2ctf1", "Quake2 pak0.pak"},
                                      {"q2ctf1", "CTF pak0.pak"},
                                      {"q2dm1", "BaseQ2 PAK0.PAK"},
                                      {"q2dm2", "BaseQ2 PAK0.PAK"},
                                      {"Arena", "Custom Maps"}};

TEST(WineCatalogue, DrivePathsOfTheRecordFindTheMapsInTheirArchivesAndFolders) {
    Installation q2;
    q2.record("C:\\quake2\\", "C:\\quake2\\baseq2\\maps\\");
    std::vector<std::string> errors;
    const Catalogue catalogue = BuildCatalogue(q2.root(), "Quake2", collectAndIgnore(errors));
    EXPECT_TRUE(catalogue.recordFound);
    EXPECT_EQ(catalogue.rows, kRows);
    EXPECT_TRUE(errors.empty());
}

TEST(WineCatalogue, ForwardSlashesAndNoTrailingSeparatorFindTheSameMaps) {
    Installation q2;
    q2.record("c:/QUAKE2", "c:/Quake2/BASEQ2/MAPS");
    std::vector<std::string> errors;
    EXPECT_EQ(BuildCatalogue(q2.root(), "Quake2", collectAndIgnore(errors)).rows, kRows);
}

TEST(WineCatalogue, TheSameInstallationNamedByZOrByItsLinuxPathGivesTheSameRows) {
    Installation q2;
    std::vector<std::string> errors;
    q2.record(rd::test::zDrivePath(q2.driveC("Quake2")),
              rd::test::zDrivePath(q2.driveC("Quake2/BaseQ2/Maps")));
    EXPECT_EQ(BuildCatalogue(q2.root(), "Quake2", collectAndIgnore(errors)).rows, kRows);
    q2.record(q2.driveC("Quake2").string() + "/", q2.driveC("Quake2/BaseQ2/Maps").string());
    EXPECT_EQ(BuildCatalogue(q2.root(), "Quake2", collectAndIgnore(errors)).rows, kRows);
    EXPECT_TRUE(errors.empty());
}

TEST(WineCatalogue, ADriveThePrefixDoesNotMapListsNothing) {
    Installation q2;
    q2.record("D:\\Quake2\\", "D:\\Quake2\\baseq2\\maps\\");
    std::vector<std::string> errors;
    const Catalogue catalogue = BuildCatalogue(q2.root(), "Quake2", collectAndIgnore(errors));
    EXPECT_TRUE(catalogue.recordFound);
    EXPECT_TRUE(catalogue.rows.empty());
    EXPECT_TRUE(errors.empty());
}

// A small map titled `title`.
std::string mapTitled(const std::string& title) {
    rd::test::BspBuilder builder;
    builder.addRoom(0, 0, 128, 128, 0, 96);
    return rd::test::buildBsp(
        builder.build(rd::test::entityText({{{"classname", "worldspawn"}, {"message", title}}})));
}

TEST(WineCatalogue, TheCardOfAMapBehindADriveCRecordIsReadFromItsArchiveAndItsFolder) {
    Installation q2;
    q2.write("Quake2/BaseQ2/PAK0.PAK", buildPak({{"maps/q2dm1.bsp", mapTitled("The Edge")}}));
    q2.write("Quake2/BaseQ2/Maps/Arena.bsp", mapTitled("Loose Arena"));
    q2.record("C:\\quake2\\", "C:\\quake2\\baseq2\\maps\\");
    const CardResult packed = FindMapCard(q2.root(), "Quake2", "Q2DM1");
    ASSERT_TRUE(packed.ok()) << packed.reason;
    EXPECT_EQ(packed.card.title, "The Edge");
    const CardResult loose = CatalogueCard(q2.root(), "Quake2", {"Arena", "Custom Maps"});
    ASSERT_TRUE(loose.ok()) << loose.reason;
    EXPECT_EQ(loose.card.title, "Loose Arena");
    q2.record("D:\\quake2\\", "D:\\quake2\\baseq2\\maps\\");
    EXPECT_EQ(CatalogueCard(q2.root(), "Quake2", {"Arena", "Custom Maps"}).reason, kNotFoundInAnyArchive);
}

#endif

} // namespace wine_catalogue_test
