#include "engine/measured/MeasuredData.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Head = "0,450,0.5,Urban,1.5,2,30,100\n";
const std::string Complete = Head + "1,90.5,95\n2.5,-80,85\n";

std::string Repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

// Of a text without a fault.
MeasuredTable Parsed(const std::string& text) {
    MeasuredTable table(1);
    const auto fault = ParseMeasuredData(text, table);
    EXPECT_FALSE(fault) << text << fault->line << ' ' << fault->fault;
    return table;
}

TEST(MeasuredData, OnlyTheSequenceOfFieldsCounts) {
    const std::string listing = MeasuredListing(Parsed(Complete));
    for (const char* text : {
             "0,450,0.5,\"Urban\",1.5,2,30,100\r\n1,90.5,95\r\n2.5,-80,85",
             "0,450,0.5,Urban,1.5,2,30,100\r1,90.5,95\r2.5,-80,85\r",
             "\xEF\xBB\xBF"
             "0,450,0.5,Urban,1.5,2,30,100,1,90.5,95,2.5,-80,85",
             "0\n450\n.5\nUrban\n1.50\n2\n30\n100\n\n1\n90.5\n95\n2.5\n-80\n85\n\n\n",
             "-0, 4.5e2 ,\t0.5\t, \"Urban\" ,+1.5, 2.0,30 ,100 \n \n1,90.5,95\n2.5,-80,85 \n\t",
             "0,450,0.5,Urban\n1.5,2,30,100,\n1,90.5,95,,,,,\r\n, ,,\r\n2.5,-80,85,,",
             "0,450,0.5,Urban,1.5,2,30,100\r\n1,90.5,95\r\n2.5,-80,85\x1A\r\n\x1A\x1A",
         })
        EXPECT_EQ(MeasuredListing(Parsed(text)), listing) << text;
}

TEST(MeasuredData, AFaultIsNamedAndLeavesWholeTables) {
    const std::string NoCount =
        "the number of base antenna heights is not a whole number from 1 to 6.";
    const struct {
        std::string text;
        int line;
        std::string fault;
        std::size_t whole;
    } cases[] = {
        {"0,1,1,U,1,2,30", 1, "the file ends where a base antenna height should follow.", 0},
        {"0,1,1,\"\",1", 1, "the file ends where the number of base antenna heights should follow.",
         0},
        {Complete + "0,450,0.5\n\n\n", 4, "the file ends where the area should follow.", 1},
        {Complete + "3,70\r\n", 4, "the file ends where a field strength should follow.", 0},
        {"0,1,1,U,1\n0,1,5,5", 2, NoCount, 0},
        {"0,1,1,U,1\n7,1,2,3,4,5,6,7", 2, NoCount, 0},
        {"0,1,1,U,1\n1.5,1,5,5", 2, NoCount, 0},
        {"\n1,2,3", 2, "a data row comes before the first table head.", 0},
        {Complete + "\r" + Head + Complete, 5, "a table has no data rows.", 1},
        {Complete + Head, 4, "a table has no data rows.", 1},
        {Complete + "x,1,2\n" + Complete, 4, "a distance is not a number.", 0},
        {Complete + "0,45O", 4, "the frequency is not a number.", 1},
        {Complete + "3,1 2,4", 4, "a field strength is not a number.", 0},
        {Complete + "3,,4", 4, "a field is empty.", 0},
        {Complete + ",3,4,5", 4, "a field is empty.", 0},
        {Head + "1,90.5,\n2,95,99\n", 2, "a field is empty.", 0},
        {Head + "1,90.5, ,,\r\n2,95,99\n", 2, "a field is empty.", 0},
        {"sep=;\n0;450;0,5;Urban\n", 1, "a \"sep=\" line is no data.", 0},
        {"0;450;0,5;Urban\n", 1, "the fields are separated by semicolons instead of commas.", 0},
        {"0\t450\t0.5\tUrban\n", 1, "the fields are separated by tabs instead of commas.", 0},
        {std::string("\xFF\xFE\x30\0,\0", 6), 1, "the text is in UTF-16 instead of UTF-8.", 0},
        {"0,1,1,\"Urban\n\",", 1, "a quotation mark is not closed.", 0},
        {"0,1,1,\"Ur\"ban,1", 1, "a comma is missing after a quoted text.", 0},
        {Repeated(Complete, 2) + Head + Repeated("1,2,3\n", 76), 83,
         "a table has more than 75 data rows.", 2},
        {Repeated("0,1,1,U,1,1,1,5,5\n", 32769), 32769, "there are more than 32768 tables.", 32768},
    };
    for (const auto& c : cases) {
        MeasuredTable table(3);
        const auto fault = ParseMeasuredData(c.text, table);
        ASSERT_TRUE(fault) << c.text;
        EXPECT_EQ(fault->line, c.line) << c.fault;
        EXPECT_EQ(fault->fault, c.fault) << c.line;
        ASSERT_EQ(table.size(), std::max(c.whole, std::size_t{1})) << c.fault << c.line;
        EXPECT_EQ(table[0].Frequency == -1.0 && table[0].HeightCount == 0, c.whole == 0);
    }
}

TEST(MeasuredData, EndMarksStandBehindTheLastRow) {
    for (const int rows : {1, 75}) {
        const MeasuredSegment segment =
            Parsed(Complete + "0,1,1,U,1,6,1,2,3,4,5,6\n" + Repeated("9,1,2,3,4,5,6\n", rows))[1];
        EXPECT_EQ(segment.RowDistance[rows - 1], 9.0);
        EXPECT_EQ(segment.RowDistance[rows], MeasuredEndMark);
        for (int c = 0; c < 6; ++c) {
            EXPECT_EQ(segment.RowValue[rows - 1][c], c + 1.0);
            EXPECT_EQ(segment.RowValue[rows][c], MeasuredEndMark);
        }
    }
}

TEST(MeasuredData, TheFirstTableThatFitsInAllValuesIsFound) {
    const MeasuredTable table = Parsed(
        "0,450,0.5,urban,1.5,1,30,1,1 \n 0,450,0.5,Urban,1.5,3,50,100,200,1,1,2,3 \n"
        "0,450,0.5,Urban,1.5,2,200,30,1,1,2 \n 0,900,0.5,\" Open\",1.5,1,30,1,1 \n"
        "0,900,50,Open,1.5,1,30,1,1");
    const struct {
        double f, hb, hm;
        const char* area;
        double time;
        int segment, column;  // -1: none
    } cases[] = {
        {450, 30, 1.5, "Urban", 0.5, 0, 0},        {450, 200, 1.5, "URBAN", 50.0 / 100.0, 1, 2},
        {450, 40, 1.5, "Urban", 0.5, -1, 0},       {450, 0, 1.5, "Urban", 0.5, -1, 0},
        {450, 30, 2, "Urban", 0.5, -1, 0},         {451, 30, 1.5, "Urban", 0.5, -1, 0},
        {450, 30, 1.5, "Urban ", 0.5, -1, 0},      {450, 30, 1.5, "Suburban", 0.5, -1, 0},
        {900, 30, 1.5, "Open", 0.5, -1, 0},        {900, 30, 1.5, " open", 0.5, 3, 0},
        {450, 30, 1.5000001, "Urban", 0.5, -1, 0},
    };
    for (const auto& c : cases) {
        const MeasuredMatch match = FindMeasuredSegment(c.f, c.hb, c.hm, c.area, c.time, table);
        EXPECT_EQ(match.found ? match.segment : -1, c.segment) << c.f << c.area << c.hb;
        EXPECT_EQ(match.found ? match.column : 0, c.column) << c.hb;
    }
}

TEST(MeasuredData, TheListingHasTheRowsOfTheLastTable) {
    EXPECT_EQ(MeasuredListing(Parsed("0,900,0.1,Open,3,1,30,1,50\n" + Complete)),
              "\r\nTable Segments: 2\r\n"
              "0> Freq:900  %:0.1 City: Open hm: 3 hb(1): 30  \r\n"
              "1> Freq:450  %:0.5 City: Urban hm: 1.5 hb(2): 30  100  \r\n"
              "     1: 90.5 95 \r\n"
              "     2.5: -80 85 \r\n"
              "\r\n");
}

TEST(MeasuredData, TheUserIsToldWhatIsWrongWithTheFile) {
    FakePlatform platform;
    const std::string path = platform.folder.Path("measured.csv");
    MeasuredTable table(1);
    for (const std::string& missing : {path, platform.folder.Path()}) {
        EXPECT_FALSE(ReadMeasuredData(missing, table, platform));
        EXPECT_EQ(platform.messages.at(0).title, "Okum-Hata");
        EXPECT_THAT(platform.TakeMessages(), ElementsAre("Warning: Cannot find file " + missing));
        EXPECT_EQ(table.size(), 1U);
    }
    ReplaceFile(path, Complete);
    EXPECT_TRUE(ReadMeasuredData(path, table, platform));
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    EXPECT_EQ(table.at(0).Frequency, 450.0);
    for (const char* nothing : {"", "\n\r\n,,\n"}) {
        ReplaceFile(path, nothing);
        EXPECT_TRUE(ReadMeasuredData(path, table, platform));
        EXPECT_THAT(platform.TakeMessages(), IsEmpty());
        EXPECT_EQ(MeasuredListing(table),
                  "\r\nTable Segments: 1\r\n0> Freq:-1  %:0 City:  hm: 0 hb(0): \r\n\r\n");
    }
    ReplaceFile(path, Complete + "3,90,o");
    EXPECT_TRUE(ReadMeasuredData(path, table, platform));
    EXPECT_EQ(platform.messages.at(0).title, "Okum-Hata");
    EXPECT_THAT(platform.TakeMessages(),
                ElementsAre("Warning: The file " + path +
                            " has a fault in line 4: a field strength is not a number. Only the "
                            "tables that were complete before it are used."));
    EXPECT_EQ(table.at(0).Frequency, -1.0);
}

}  // namespace
}  // namespace vardel
