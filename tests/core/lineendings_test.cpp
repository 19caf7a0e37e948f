// How a text file's lines end, and the audit that sees every file a loader reads whole.

#include "core/textfile.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace lineendings_test {

using namespace rd;
using rd::test::TempWorkspace;

TEST(LineEndings, CrLfAfterEveryLineIsClean) {
    const LineEndings e = lineEndingsOf("a\r\n\r\nb\r\n");
    EXPECT_EQ(e, (LineEndings{3, 0, 0, 0, 0, false}));
}

TEST(LineEndings, AnEmptyFileHasNoLines) {
    EXPECT_EQ(lineEndingsOf(""), LineEndings{});
}

TEST(LineEndings, LinesEndedByLineFeedAloneAreCountedFromTheFirst) {
    const LineEndings e = lineEndingsOf("a\r\nb\nc\r\nd\n");
    EXPECT_EQ(e.lines, 4u);
    EXPECT_EQ(e.bareLineFeeds, 2u);
    EXPECT_EQ(e.firstBareLineFeed, 2u);
    EXPECT_FALSE(e.lastLineUnterminated);
}

TEST(LineEndings, ACarriageReturnWithoutLineFeedIsALoneReturn) {
    const LineEndings e = lineEndingsOf("a\r\nb\rc\r\nd\r\r\n");
    EXPECT_EQ(e.lines, 3u);
    EXPECT_EQ(e.loneReturns, 2u);
    EXPECT_EQ(e.firstLoneReturn, 2u);
    EXPECT_EQ(e.bareLineFeeds, 0u);
}

TEST(LineEndings, ALastLineWithoutTerminatorCounts) {
    const LineEndings e = lineEndingsOf("a\r\nb");
    EXPECT_EQ(e.lines, 2u);
    EXPECT_TRUE(e.lastLineUnterminated);
}

TEST(LineEndings, AFileEndingInACarriageReturnHasALoneReturnAndNoTerminator) {
    const LineEndings e = lineEndingsOf("a\r");
    EXPECT_EQ(e.lines, 1u);
    EXPECT_EQ(e.loneReturns, 1u);
    EXPECT_TRUE(e.lastLineUnterminated);
}

TEST(LineEndings, PiecesGiveWhatTheWholeGives) {
    const std::string bytes = "one\r\ntwo\nthree\r\rfour\r\nfive";
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        LineEndingsScanner scanner;
        scanner.feed(std::string_view(bytes).substr(0, cut));
        scanner.feed(std::string_view(bytes).substr(cut));
        EXPECT_EQ(scanner.finish(), lineEndingsOf(bytes)) << "cut at " << cut;
    }
}

TEST(LineEndingsAudit, SeesTheWholeFileWhenTheLoaderReadsOnlyItsFirstLine) {
    TempWorkspace ws;
    ws.write("profile.cfg", "Eraser\r\nskill=3\nmaps=q2dm1");
    LineEndingsAudit audit;
    {
        LineReader reader(ws.path("profile.cfg"));
        EXPECT_EQ(reader.readLine(""), "Eraser");
    }
    ASSERT_EQ(audit.files().size(), 1u);
    EXPECT_EQ(audit.files()[0].path, ws.path("profile.cfg"));
    const LineEndings* e = audit.find(ws.path("profile.cfg"));
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->lines, 3u);
    EXPECT_EQ(e->firstBareLineFeed, 2u);
    EXPECT_TRUE(e->lastLineUnterminated);
}

TEST(LineEndingsAudit, ALoaderReadsWhatItAlwaysReads) {
    TempWorkspace ws;
    ws.write("Setup.cfg", "Quake2\r\nEraser\r\nrest\r\n");
    LineEndingsAudit audit;
    LineReader reader(ws.path("Setup.cfg"));
    EXPECT_EQ(reader.readLine("x"), "Quake2");
    EXPECT_EQ(reader.readLine("x"), "Eraser");
    EXPECT_EQ(reader.readLine("x"), "rest");
    EXPECT_EQ(reader.readLine("x"), "x");
    reader.close();
    EXPECT_EQ(audit.find(ws.path("Setup.cfg"))->lines, 3u);
}

TEST(LineEndingsAudit, FilesLargerThanOneReadAreScannedToTheirEnd) {
    TempWorkspace ws;
    std::string bytes;
    for (int i = 0; i < 20000; ++i)
        bytes += (i == 15000 ? "line\n" : "line\r\n");
    ws.write("big.lst", bytes);
    LineEndingsAudit audit;
    { LineReader reader(ws.path("big.lst")); }
    const LineEndings* e = audit.find(ws.path("big.lst"));
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->lines, 20000u);
    EXPECT_EQ(e->bareLineFeeds, 1u);
    EXPECT_EQ(e->firstBareLineFeed, 15001u);
}

TEST(LineEndingsAudit, FilesReadBeforeOrAfterTheAuditAreNotSeen) {
    TempWorkspace ws;
    ws.write("a.cfg", "a\n");
    { LineReader before(ws.path("a.cfg")); }
    {
        LineEndingsAudit audit;
        EXPECT_TRUE(audit.files().empty());
    }
    LineReader after(ws.path("a.cfg"));
    EXPECT_EQ(after.readLine(""), "a");
    EXPECT_EQ(LineEndingsAudit::current(), nullptr);
}

TEST(LineEndingsAudit, AFileReadTwiceIsListedOnce) {
    TempWorkspace ws;
    ws.write("a.cfg", "a\r\n");
    LineEndingsAudit audit;
    readAllLines(ws.path("a.cfg"));
    readAllLines(ws.path("a.cfg"));
    EXPECT_EQ(audit.files().size(), 1u);
}

} // namespace lineendings_test
