#include "core/errors.h"
#include "core/textfile.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace textfile_test {

using namespace rd;
using rd::test::TempWorkspace;

std::vector<std::string> linesOf(const TempWorkspace& ws, const std::string& name, const std::string& bytes) {
    ws.write(name, bytes);
    return readAllLines(ws.path(name));
}

TEST(TextFile, ReadsCrLfLinesWithoutTheirTerminators) {
    TempWorkspace ws;
    EXPECT_EQ(linesOf(ws, "a.cfg", "one\r\ntwo\r\n"), (std::vector<std::string>{"one", "two"}));
}

TEST(TextFile, ALoneLfAlsoEndsALine) {
    TempWorkspace ws;
    EXPECT_EQ(linesOf(ws, "a.cfg", "one\ntwo\n"), (std::vector<std::string>{"one", "two"}));
}

TEST(TextFile, LastLineWithoutTerminatorIsStillALine) {
    TempWorkspace ws;
    EXPECT_EQ(linesOf(ws, "a.cfg", "one\r\ntwo"), (std::vector<std::string>{"one", "two"}));
}

TEST(TextFile, EmptyLinesAreLines) {
    TempWorkspace ws;
    EXPECT_EQ(linesOf(ws, "a.cfg", "\r\none\r\n\r\n"), (std::vector<std::string>{"", "one", ""}));
}

TEST(TextFile, EmptyFileHasNoLines) {
    TempWorkspace ws;
    EXPECT_TRUE(linesOf(ws, "a.cfg", "").empty());
}

TEST(TextFile, ALoneCrStaysInsideTheLine) {
    TempWorkspace ws;
    EXPECT_EQ(linesOf(ws, "a.cfg", "a\rb\r\nc\r\r\n"), (std::vector<std::string>{"a\rb", "c\r"}));
}

TEST(TextFile, HighBytesRoundTripByteForByte) {
    TempWorkspace ws;
    std::string line;
    for (int b = 0x80; b <= 0xFF; ++b)
        line += static_cast<char>(b);
    const std::string bytes = "Caf\xE9\r\n" + line + "\r\n";
    const auto lines = linesOf(ws, "a.cfg", bytes);
    writeAllLines(ws.path("b.cfg"), lines);
    EXPECT_EQ(ws.read("b.cfg"), bytes);
}

TEST(TextFile, WriterPutsCrLfAfterEveryLineAndNothingElse) {
    TempWorkspace ws;
    writeAllLines(ws.path("w.cfg"), {"a", "", "c"});
    EXPECT_EQ(ws.read("w.cfg"), "a\r\n\r\nc\r\n");
}

TEST(TextFile, WriterRewritesTheFileWhole) {
    TempWorkspace ws;
    ws.write("w.cfg", "a much longer old content\r\nline two\r\n");
    writeAllLines(ws.path("w.cfg"), {"x"});
    EXPECT_EQ(ws.read("w.cfg"), "x\r\n");
}

TEST(TextFile, EmptyListWritesAnEmptyFile) {
    TempWorkspace ws;
    writeAllLines(ws.path("w.cfg"), {});
    EXPECT_EQ(ws.read("w.cfg"), "");
}

TEST(TextFile, FixedLayoutFileOfTwoLinesLeavesFieldsThreeToFiveAtTheirDefaults) {
    TempWorkspace ws;
    ws.write("rec.cfg", "first\r\nsecond\r\n");
    LineReader reader(ws.path("rec.cfg"));
    std::vector<std::string> fields;
    for (const char* fallback : {"d1", "d2", "d3", "d4", "d5"})
        fields.push_back(reader.readLine(fallback));
    EXPECT_EQ(fields, (std::vector<std::string>{"first", "second", "d3", "d4", "d5"}));
}

TEST(TextFile, ClosedReaderGivesTheDefaultUnchanged) {
    LineReader reader;
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.readLine(" keep me "), " keep me ");
}

TEST(TextFile, MissingFileRaisesFileNotFound) {
    TempWorkspace ws;
    try {
        LineReader reader(ws.path("missing.cfg"));
        FAIL() << "no error";
    } catch (const FileError& e) {
        EXPECT_NE(std::string(e.what()).find("File not found"), std::string::npos);
    }
}

TEST(TextFile, FolderWhereAFileIsExpectedRaisesAClearError) {
    TempWorkspace ws;
    ws.folder("Setup.cfg");
    EXPECT_THROW(LineReader(ws.path("Setup.cfg")), FileError);
    EXPECT_THROW(LineWriter(ws.path("Setup.cfg")), FileError);
}

TEST(TextFile, ATenMegabyteSingleLineIsReadWhole) {
    TempWorkspace ws;
    const std::string big(10 * 1024 * 1024, 'x');
    ws.write("big.cfg", big);
    LineReader reader(ws.path("big.cfg"));
    EXPECT_EQ(reader.readLine("").size(), big.size());
    EXPECT_TRUE(reader.atEnd());
}

TEST(TextFile, LinesLongerThanTheReadBufferKeepTheirTerminatorRules) {
    TempWorkspace ws;
    const std::string a(100000, 'a');
    const std::string b(70000, 'b');
    EXPECT_EQ(linesOf(ws, "long.cfg", a + "\r\n" + b + "\n"), (std::vector<std::string>{a, b}));
}

} // namespace textfile_test
