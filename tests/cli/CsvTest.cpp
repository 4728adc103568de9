#include "cli/batch/Csv.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "cli/batch/RowReader.h"

namespace vardel::cli {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> TextsOf(const std::vector<CsvField>& fields) {
    std::vector<std::string> texts;
    for (const CsvField& field : fields) texts.push_back(field.Text());
    return texts;
}

TEST(Csv, FieldsOfARow) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {""}},
        {"a,,b,", {"a", "", "b", ""}},
        {R"("a,b","c""d","","""")", {"a,b", "c\"d", "", "\""}},
        {"\"two\r\nlines\",\"\"\"\"\"\"", {"two\r\nlines", "\"\""}},
    };
    for (const auto& [row, texts] : cases) {
        std::vector<CsvField> fields;
        EXPECT_FALSE(SplitRow(row, ',', fields)) << row;
        EXPECT_EQ(TextsOf(fields), texts) << row;
    }
}

TEST(Csv, WhatIsWrongWithTheForm) {
    const std::tuple<std::string, std::size_t, const char*> cases[] = {
        {"a;b\"c", 1, "a quote inside"},  {"\"a\"b;c", 0, "behind the closing"},
        {"a;b;\"c;d", 2, "never closed"}, {std::string("a;b\0;\"c", 7), 1, "NUL"},
        {"a\rb;c", 0, "carriage return"}, {"a;\"b\"\r", 1, "behind the closing"},
    };
    for (const auto& [row, field, fault] : cases) {
        std::vector<CsvField> fields;
        const auto found = SplitRow(row, ';', fields);
        ASSERT_TRUE(found) << row;
        EXPECT_EQ(found->field, field) << row;
        EXPECT_THAT(found->fault, HasSubstr(fault)) << row;
    }
}

// Gives the text in pieces of so many bytes.
Source InPieces(std::string text, std::size_t piece) {
    return [text = std::move(text), piece, at = std::size_t{0}](char* bytes,
                                                                std::size_t size) mutable {
        const std::size_t come = text.copy(bytes, std::min(size, piece), at);
        at += come;
        return come;
    };
}

TEST(RowReader, CutsBetweenRowsWhereverReadsEnd) {
    for (std::size_t piece = 1; piece < 30; ++piece) {
        RowReader reader(InPieces("\xEF\xBB\xBFh;\"i\"\r\n1;\"a\n;\"\"b\"\n\n2;c", piece));
        EXPECT_EQ(reader.TakeHead(), "h;\"i\"\r\n");
        EXPECT_TRUE(reader.HadByteOrderMark());
        EXPECT_EQ(reader.Delimiter(), ';');
        std::vector<std::string> rows;
        std::size_t line = 2;
        for (RowBlock block; reader.TakeRows(block);) {
            EXPECT_EQ(block.firstLine, line) << piece;
            std::size_t start = 0;
            for (const std::size_t end : block.ends) {
                rows.push_back(block.text.substr(start, end - start));
                start = end;
            }
            line +=
                static_cast<std::size_t>(std::count(block.text.begin(), block.text.end(), '\n'));
        }
        EXPECT_THAT(rows, ElementsAre("1;\"a\n;\"\"b\"\n", "\n", "2;c")) << piece;
    }
}

// The rows before it come, then the fault; whatever the reads.
TEST(RowReader, StopsAtARowThatIsTooLong) {
    const std::string longest = std::string(LongestRow - 1, 'x') + '\n';
    for (const std::size_t piece : {std::size_t{5000}, std::size_t{1} << 20U}) {
        RowReader reader(InPieces("h\n" + longest + "ok\ny" + longest + "never\n", piece));
        reader.TakeHead();
        std::string taken;
        try {
            for (RowBlock block; reader.TakeRows(block);) taken += block.text;
            ADD_FAILURE() << piece;
        } catch (const InputError& error) {
            EXPECT_THAT(error.what(), HasSubstr("line 4: the row is longer than 1 MiB"));
        }
        EXPECT_EQ(taken, longest + "ok\n");
    }
}

}  // namespace
}  // namespace vardel::cli
