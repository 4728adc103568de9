#include "cli/batch/Batch.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace vardel::cli {

namespace {

// Rows that are cut into fields as the head is.
class RowSplitter {
public:
    RowSplitter(char delimiter, const Columns& columns)
        : delimiter_(delimiter), columns_(columns) {}

    // Gives what is wrong with the form of the row. As many fields as the head has come out;
    // asWritten: the text consists of just these.
    std::optional<std::string> Split(std::string_view row, std::vector<CsvField>& fields,
                                     bool& asWritten) const {
        const auto fault = SplitRow(row, delimiter_, fields);
        const std::size_t wanted = columns_.Names().size();
        const std::size_t have = fields.size();
        const bool onlyEmptyMore =
            std::all_of(fields.begin() + static_cast<std::ptrdiff_t>(std::min(wanted, have)),
                        fields.end(), [](const CsvField& field) { return field.raw.empty(); });
        fields.resize(wanted);
        asWritten = !fault && have == wanted;
        if (fault) return ColumnText(fault->field) + fault->fault;
        if (have < wanted || !onlyEmptyMore)
            return "column " + std::to_string(std::min(have, wanted) + 1) + ": the row has " +
                   std::to_string(have) + " fields, the head " + std::to_string(wanted);
        return std::nullopt;
    }

private:
    std::string ColumnText(std::size_t column) const {
        return "column " +
               (column < columns_.Names().size() && !columns_.Names()[column].empty()
                    ? columns_.Names()[column]
                    : std::to_string(column + 1)) +
               ": ";
    }

    char delimiter_;
    const Columns& columns_;
};

// The workers take blocks one after the other, and write them in that order.
class Workers {
public:
    Workers(const BatchRun& run, const RowFormat& format, RowReader& reader, const Columns& columns)
        : run_(run),
          format_(format),
          reader_(reader),
          splitter_(reader.Delimiter(), columns),
          columns_(columns) {}

    BatchCount Run() {
        std::vector<std::thread> threads;
        threads.reserve(run_.threads);
        try {
            for (unsigned i = 1; i < run_.threads; ++i) threads.emplace_back([this] { Work(); });
        } catch (const std::system_error&) {
            // The system gives no more; those there are do the same.
        }
        Work();
        for (std::thread& thread : threads) thread.join();
        for (const auto& fault : {fault_, readFault_})
            if (fault) std::rethrow_exception(fault);
        return count_;
    }

private:
    struct Written {
        std::string out;
        std::string messages;
        BatchCount count;
    };

    void Work() {
        RowBlock block;
        Written written;
        while (const auto number = TakeBlock(block)) {
            std::exception_ptr fault;
            try {
                Format(block, written);
            } catch (...) {
                fault = std::current_exception();
            }
            if (!Write(*number, written, fault)) return;
        }
    }

    // The block's place in the order; nothing: there is none left.
    std::optional<std::size_t> TakeBlock(RowBlock& block) {
        const std::lock_guard lock(reading_);
        if (ended_) return std::nullopt;
        try {
            if (reader_.TakeRows(block)) return taken_++;
        } catch (...) {
            readFault_ = std::current_exception();
        }
        ended_ = true;
        return std::nullopt;
    }

    void Format(const RowBlock& block, Written& written) const {
        written.out.clear();
        written.messages.clear();
        written.count = {};
        std::vector<CsvField> fields;
        RowPath path;
        std::size_t line = block.firstLine;
        std::size_t start = 0;
        for (const std::size_t end : block.ends) {
            const std::string_view whole = std::string_view(block.text).substr(start, end - start);
            start = end;
            if (const std::string_view text = WithoutLineEnd(whole); !text.empty()) {
                bool asWritten = false;
                auto wrong = splitter_.Split(text, fields, asWritten);
                if (!wrong) wrong = columns_.Read(fields, path);
                ++written.count.rows;
                if (wrong) {
                    ++written.count.errors;
                    wrong = "line " + std::to_string(line) + ", " + *wrong;
                }
                format_.Row(written.out, written.messages,
                            {text, asWritten, fields, wrong ? nullptr : &path, wrong.value_or("")});
            }
            line += static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '\n'));
        }
    }

    // Waits for the block's turn. False: nothing more can be written.
    bool Write(std::size_t number, const Written& written, const std::exception_ptr& fault) {
        std::unique_lock lock(writing_);
        turn_.wait(lock, [&] { return next_ == number || stopped_; });
        if (stopped_) return false;
        try {
            if (fault) std::rethrow_exception(fault);
            run_.output(written.out);
            if (!written.messages.empty()) run_.messages(written.messages);
            count_.rows += written.count.rows;
            count_.errors += written.count.errors;
            if (run_.progress) run_.progress(count_);
        } catch (...) {
            stopped_ = true;
            fault_ = std::current_exception();
        }
        ++next_;
        turn_.notify_all();
        return !stopped_;
    }

    const BatchRun& run_;
    const RowFormat& format_;
    RowReader& reader_;
    RowSplitter splitter_;
    const Columns& columns_;

    std::mutex reading_;
    std::size_t taken_ = 0;
    bool ended_ = false;
    std::exception_ptr readFault_;  // reported after what came before it is written

    std::mutex writing_;
    std::condition_variable turn_;
    std::size_t next_ = 0;
    bool stopped_ = false;
    std::exception_ptr fault_;
    BatchCount count_;
};

}  // namespace

BatchCount RunBatch(const BatchRun& run, RowFormat& format) {
    RowReader reader(run.source, run.readSize);
    const std::string head = reader.TakeHead();
    const std::string_view headText = WithoutLineEnd(head);
    std::vector<CsvField> names;
    if (const auto fault = SplitRow(headText, reader.Delimiter(), names))
        throw InputError("line 1, column " + std::to_string(fault->field + 1) + ": " +
                         fault->fault);
    const Columns columns(names, run.defaults, format.AddedColumns(), run.ground);
    if (run.notes)
        for (const std::string& note : columns.Notes()) run.notes(note);
    std::string out;
    format.Begin(out, head, reader, columns);
    run.output(out);
    return Workers(run, format, reader, columns).Run();
}

}  // namespace vardel::cli
