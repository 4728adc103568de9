#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace SQLite {
class Statement;
class Transaction;
}  // namespace SQLite

// Rows that are added to the tables of a database file, or read from it. Whatever fails throws
// std::exception with the database's own text. A file may come from anybody: see DatabaseFile.

namespace vardel {

using Bytes = std::vector<unsigned char>;
using FieldValue = std::variant<std::int64_t, std::string, Bytes>;

class DatabaseFile;
struct OpenTable;

// A row that was begun. It reaches the table by Update, and not at all without.
class NewRow {
public:
    NewRow(NewRow&& other) noexcept;
    ~NewRow();

    // Throws, as do the next two, where the table has no such field.
    void Set(std::string_view field, FieldValue value);
    // Puts the bytes behind those that the field has.
    void AppendChunk(std::string_view field, const Bytes& bytes);
    // The number in a field: as it was set, or as the database gave it.
    std::int64_t Number(std::string_view field);
    // Writes the row. Throws where that fails; the table is then as it was.
    void Update();

private:
    friend class Recordset;
    explicit NewRow(std::shared_ptr<const OpenTable> table);

    // Null where the field has no value yet. Throws where the table has no such field.
    FieldValue* Find(std::string_view field);
    void GiveNumber();

    std::shared_ptr<const OpenTable> table_;
    std::vector<std::pair<std::string, FieldValue>> fields_;
    std::unique_ptr<SQLite::Transaction> numbering_;  // keeps others from taking the row's number
};

// A table of an open database; closed at first. Every operation on a closed one throws.
class Recordset {
public:
    Recordset() = default;

    // A key that the database numbers has its value from here on. Where the key is AUTOINCREMENT
    // nobody gets that number again, whatever becomes of the row.
    NewRow AddNew();
    // Makes the last row the current one.
    void MoveLast();
    std::int64_t CurrentRow() const { return current_; }  // by its rowid; 0: none
    void Close();

private:
    friend class Database;
    explicit Recordset(std::shared_ptr<const OpenTable> table) : table_(std::move(table)) {}
    const std::shared_ptr<const OpenTable>& Opened() const;

    std::shared_ptr<const OpenTable> table_;
    std::int64_t current_ = 0;
};

// The rows that a query gives, one after the other. While there are more, nobody can write.
class Rows {
public:
    Rows(Rows&& other) noexcept;
    ~Rows();

    // Goes to the first row, then to the next; false when there are no more.
    bool Next();
    // A field of the row, by its place; nothing where it holds a value of another type.
    std::optional<std::int64_t> Number(int field) const;
    std::optional<std::string> Text(int field) const;
    std::optional<Bytes> Blob(int field) const;

private:
    friend class Database;
    Rows(std::shared_ptr<DatabaseFile> file, const std::string& query,
         std::vector<FieldValue> values);

    std::shared_ptr<DatabaseFile> file_;
    std::vector<FieldValue> values_;  // the statement reads them where they are
    std::unique_ptr<SQLite::Statement> query_;
};

// A statement that changes rows, with the values for its ?1, ?2 and so on.
struct RowChange {
    std::string statement;
    std::vector<FieldValue> values;
};

// An open file. It holds no lock but while a row is written or rows are read.
class Database {
public:
    static constexpr int LongestWait = 2000;  // ms, for another program

    // The content of a new file, made by these statements.
    static std::string NewFile(const std::string& sql);

    // The file must be there. Another program that is writing to it is waited for, here and in
    // everything that follows, but not longer than two seconds. A file without permission to write
    // is opened for reading.
    static Database OpenDatabase(const std::string& path);

    // Likewise, and nothing can be written by it. Only what a killed program left half written is
    // taken back first, where the user may write the file. Another program is waited for so long,
    // in ms.
    static Database OpenForReading(const std::string& path, int longestWait = LongestWait);

    // Throws where the file has another thing of the name than a table whose fields are all stored,
    // such as a view, which could compute its rows without end.
    void DemandTable(const std::string& name) const;
    // A table by its name, to add rows to; throws where there is none.
    Recordset OpenRecordset(const std::string& name) const;
    // The rows of a query; the values are for its ?1, ?2 and so on.
    Rows Select(const std::string& query, std::vector<FieldValue> values = {}) const;
    // Makes all of the changes, or none.
    void Change(const std::vector<RowChange>& changes) const;

private:
    explicit Database(std::shared_ptr<DatabaseFile> file) : file_(std::move(file)) {}

    std::shared_ptr<DatabaseFile> file_;
};

}  // namespace vardel
