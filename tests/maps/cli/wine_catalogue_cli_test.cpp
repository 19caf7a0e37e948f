// rosterdesk-cli catalogue on a launcher installed under Wine: a C:\ record lists the maps in
// drive_c.

#include "tests/support/pak_writer_data.h"
#include "tests/support/process_data.h"
#include "tests/support/wine_data.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace wine_catalogue_cli_test {

using rd::test::FakeWinePrefix;

#ifndef _WIN32

TEST(CliWineCatalogue, CatalogueListsTheMapsBehindADriveCRecord) {
    FakeWinePrefix wine;
    wine.write("Quake2/baseq2/pak0.pak",
               rd::test::buildPak({{"maps/q2dm1.bsp", "B"}, {"maps/base1.bsp", "B"}}));
    wine.write("Quake2/baseq2/MAPS/ztn2dm1.bsp", "");
    wine.writeLines("Tarnwick/Game-Paths/Quake2/Quake2.Gme", {"C:\\quake2\\", "C:\\quake2\\baseq2\\maps\\"});
    const auto run =
        rd::test::runProgram(ROSTERDESK_CLI, {"--root", wine.root().string(), "catalogue", "Quake2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), nlohmann::json::parse(R"([{"name": "q2dm1", "source": "BaseQ2 pak0.pak"},
        {"name": "base1", "source": "BaseQ2 pak0.pak"}, {"name": "ztn2dm1", "source": "Custom Maps"}])"));
    EXPECT_EQ(run.err, "");
}

#endif

} // namespace wine_catalogue_cli_test
