#pragma once

#include "cli/batch/Batch.h"
#include "text/CalendarTime.h"

namespace vardel::cli {

// The rows as they came, with the results and an error as further columns.
class CsvRows : public RowFormat {
public:
    std::vector<std::string> AddedColumns() const override;
    void Begin(std::string& out, std::string_view head, const RowReader& input,
               const Columns& columns) override;
    void Row(std::string& out, std::string& messages, const BatchRow& row) const override;

private:
    char delimiter_ = ',';
    std::string lineEnd_;
    std::size_t found_ = 0;  // columns
};

// An object for each row, with the same names.
class JsonRows : public RowFormat {
public:
    std::vector<std::string> AddedColumns() const override;
    void Begin(std::string& out, std::string_view head, const RowReader& input,
               const Columns& columns) override;
    void Row(std::string& out, std::string& messages, const BatchRow& row) const override;

private:
    struct Column {
        std::string name;
        bool number;
    };
    std::vector<Column> columns_;
    std::vector<std::string> found_;  // names
};

// A line of the report log for each row that can be calculated; the others are messages.
class LogRows : public RowFormat {
public:
    LogRows(const CalendarTime& time, bool header) : time_(time), header_(header) {}
    void Begin(std::string& out, std::string_view head, const RowReader& input,
               const Columns& columns) override;
    void Row(std::string& out, std::string& messages, const BatchRow& row) const override;

private:
    CalendarTime time_;
    bool header_;
};

// What such a line is, and the heads of its columns with a line end.
std::string LogText(const PathInputs& path, const CalendarTime& time);
std::string LogHeads();

}  // namespace vardel::cli
