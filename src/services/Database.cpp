#include "services/Database.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>

#include "services/DatabaseFile.h"
#include "services/Files.h"

namespace vardel {

struct OpenTable {
    std::shared_ptr<DatabaseFile> file;
    std::string name;
    std::vector<std::string> fields;
    std::string key;             // the field that the database numbers; empty: none
    bool keyIsSequence = false;  // whether it is AUTOINCREMENT
};

namespace {

std::string Quoted(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted + '"';
}

bool SameName(const std::string& a, const std::string& b) {
    return sqlite3_stricmp(a.c_str(), b.c_str()) == 0;
}

void FindKey(OpenTable& table) {
    int keys = 0;
    for (const std::string& field : table.fields) {
        const char* type = nullptr;
        int inKey = 0;
        int sequence = 0;
        sqlite3_table_column_metadata(table.file->getHandle(), nullptr, table.name.c_str(),
                                      field.c_str(), &type, nullptr, nullptr, &inKey, &sequence);
        if (inKey == 0) continue;
        ++keys;
        if (type == nullptr || !SameName(type, "INTEGER")) continue;
        table.key = field;
        table.keyIsSequence = sequence != 0;
    }
    if (keys != 1) table.key.clear();
}

std::int64_t NextNumber(const OpenTable& table) {
    const std::string sequence = "ifnull((SELECT seq FROM sqlite_sequence WHERE name = ?), 0)";
    SQLite::Statement next(*table.file, "SELECT 1 + max(" + (table.keyIsSequence ? sequence : "0") +
                                            ", ifnull((SELECT max(" + Quoted(table.key) +
                                            ") FROM " + Quoted(table.name) + "), 0))");
    if (table.keyIsSequence) next.bind(1, table.name);
    next.executeStep();
    return next.getColumn(0).getInt64();
}

void RaiseSequence(const OpenTable& table, std::int64_t number) {
    SQLite::Statement raise(*table.file, "UPDATE sqlite_sequence SET seq = ?2 WHERE name = ?1");
    raise.bind(1, table.name);
    raise.bind(2, number);
    if (raise.exec() != 0) return;
    SQLite::Statement begin(*table.file, "INSERT INTO sqlite_sequence (name, seq) VALUES (?1, ?2)");
    begin.bind(1, table.name);
    begin.bind(2, number);
    begin.exec();
}

void BindTo(SQLite::Statement& statement, int index, const FieldValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value))
        statement.bind(index, *number);
    else if (const auto* text = std::get_if<std::string>(&value))
        statement.bindNoCopy(index, *text);
    else if (const auto* bytes = std::get_if<Bytes>(&value))
        statement.bindNoCopy(index, bytes->data(), static_cast<int>(bytes->size()));
}

void BindTo(SQLite::Statement& statement, const std::vector<FieldValue>& values) {
    int index = 0;
    for (const FieldValue& value : values) BindTo(statement, ++index, value);
}

// What a statement does, with words for one that was ended because of its steps.
template <class Work>
auto Counted(const DatabaseFile& file, Work work) {
    try {
        return work();
    } catch (const SQLite::Exception&) {
        if (!file.HasOverrun()) throw;
        throw std::runtime_error("it takes more steps than a file of its size can need");
    }
}

}  // namespace

NewRow::NewRow(std::shared_ptr<const OpenTable> table) : table_(std::move(table)) {
    if (!table_->key.empty()) GiveNumber();
}

NewRow::NewRow(NewRow&&) noexcept = default;
NewRow::~NewRow() = default;

// The number is nobody else's because the file is held from the look for the highest until either
// the sequence is past it or the row is there.
void NewRow::GiveNumber() {
    table_->file->BeginStatement();
    numbering_ = std::make_unique<SQLite::Transaction>(*table_->file,
                                                       SQLite::TransactionBehavior::IMMEDIATE);
    const std::int64_t number = NextNumber(*table_);
    if (table_->keyIsSequence) {
        RaiseSequence(*table_, number);
        numbering_->commit();
        numbering_.reset();
    }
    Set(table_->key, number);
}

FieldValue* NewRow::Find(std::string_view field) {
    const auto isField = [&](const std::string& name) {
        return SameName(name, std::string(field));
    };
    if (std::none_of(table_->fields.begin(), table_->fields.end(), isField))
        // The database says so in its own words.
        SQLite::Statement(*table_->file, "INSERT INTO " + Quoted(table_->name) + " (" +
                                             Quoted(field) + ") VALUES (NULL)");
    for (auto& [name, value] : fields_)
        if (isField(name)) return &value;
    return nullptr;
}

void NewRow::Set(std::string_view field, FieldValue value) {
    if (FieldValue* before = Find(field))
        *before = std::move(value);
    else
        fields_.emplace_back(field, std::move(value));
}

void NewRow::AppendChunk(std::string_view field, const Bytes& bytes) {
    FieldValue* before = Find(field);
    if (before == nullptr)
        fields_.emplace_back(field, bytes);
    else if (auto* chunk = std::get_if<Bytes>(before))
        chunk->insert(chunk->end(), bytes.begin(), bytes.end());
}

std::int64_t NewRow::Number(std::string_view field) {
    const FieldValue* value = Find(field);
    if (value == nullptr || !std::holds_alternative<std::int64_t>(*value))
        throw std::logic_error(table_->name + '.' + std::string(field) +
                               " got no number from the database");
    return std::get<std::int64_t>(*value);
}

void NewRow::Update() {
    std::string names;
    std::string places;
    for (const auto& [field, value] : fields_) {
        names += (names.empty() ? "" : ", ") + Quoted(field);
        places += places.empty() ? "?" : ", ?";
    }
    table_->file->BeginStatement();
    Counted(*table_->file, [&] {
        SQLite::Statement insert(*table_->file, "INSERT INTO " + Quoted(table_->name) + " (" +
                                                    names + ") VALUES (" + places + ')');
        int index = 0;
        for (const auto& [field, value] : fields_) BindTo(insert, ++index, value);
        return insert.exec();
    });
    if (numbering_) numbering_->commit();
    numbering_.reset();
}

const std::shared_ptr<const OpenTable>& Recordset::Opened() const {
    if (!table_) throw std::logic_error("The database is not open");
    return table_;
}

NewRow Recordset::AddNew() { return NewRow(Opened()); }

void Recordset::MoveLast() {
    const OpenTable& table = *Opened();
    table.file->BeginStatement();
    current_ = table.file->execAndGet("SELECT max(rowid) FROM " + Quoted(table.name)).getInt64();
}

void Recordset::Close() {
    Opened();
    table_.reset();
    current_ = 0;
}

Rows::Rows(std::shared_ptr<DatabaseFile> file, const std::string& query,
           std::vector<FieldValue> values)
    : file_(std::move(file)), values_(std::move(values)) {
    file_->BeginStatement();
    query_ = std::make_unique<SQLite::Statement>(*file_, query);
    BindTo(*query_, values_);
}

Rows::Rows(Rows&&) noexcept = default;
Rows::~Rows() = default;

bool Rows::Next() {
    return Counted(*file_, [this] { return query_->executeStep(); });
}

std::optional<std::int64_t> Rows::Number(int field) const {
    const SQLite::Column column = query_->getColumn(field);
    if (!column.isInteger()) return std::nullopt;
    return column.getInt64();
}

std::optional<std::string> Rows::Text(int field) const {
    const SQLite::Column column = query_->getColumn(field);
    if (!column.isText()) return std::nullopt;
    return column.getString();
}

std::optional<Bytes> Rows::Blob(int field) const {
    const SQLite::Column column = query_->getColumn(field);
    if (!column.isBlob()) return std::nullopt;
    const auto* first = static_cast<const unsigned char*>(column.getBlob());
    return Bytes(first, first + column.getBytes());
}

std::string Database::NewFile(const std::string& sql) {
    SQLite::Database made(":memory:", SQLite::OPEN_READWRITE);
    made.exec(sql);
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> content(
        sqlite3_serialize(made.getHandle(), "main", &size, 0), sqlite3_free);
    if (!content) throw std::bad_alloc();
    return {content.get(), content.get() + size};
}

Database Database::OpenDatabase(const std::string& path) {
    const bool mayWrite = MayWriteFile(path);
    auto file = std::make_shared<DatabaseFile>(
        path, mayWrite ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY, LongestWait);
    // Nothing is read as yet: here the file is found to be a database, and free.
    if (sqlite3_db_readonly(file->getHandle(), nullptr) == 0)
        const SQLite::Transaction freeToWrite(*file, SQLite::TransactionBehavior::IMMEDIATE);
    else
        file->execAndGet("SELECT count(*) FROM sqlite_master");
    return Database(std::move(file));
}

Database Database::OpenForReading(const std::string& path, int longestWait) {
    const auto open = [&](int mode) {
        auto file = std::make_shared<DatabaseFile>(path, mode, longestWait);
        Counted(*file, [&] { return file->execAndGet("SELECT count(*) FROM sqlite_master"); });
        return file;
    };
    try {
        return Database(open(SQLite::OPEN_READONLY));
    } catch (const SQLite::Exception& error) {
        const bool leftHalfWritten = error.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK;
        if (!leftHalfWritten || !MayWriteFile(path)) throw;
    }
    auto file = open(SQLite::OPEN_READWRITE);
    file->exec("PRAGMA query_only = ON");
    return Database(std::move(file));
}

void Database::Change(const std::vector<RowChange>& changes) const {
    SQLite::Transaction all(*file_, SQLite::TransactionBehavior::IMMEDIATE);
    for (const auto& [text, values] : changes) {
        file_->BeginStatement();
        SQLite::Statement statement(*file_, text);
        BindTo(statement, values);
        Counted(*file_, [&statement] { return statement.exec(); });
    }
    all.commit();
}

Rows Database::Select(const std::string& query, std::vector<FieldValue> values) const {
    return {file_, query, std::move(values)};
}

void Database::DemandTable(const std::string& name) const {
    Rows found = Select(
        "SELECT type = 'table' AND rootpage > 0 FROM sqlite_master WHERE name = ?1 COLLATE NOCASE",
        {name});
    if (found.Next() && found.Number(0) != 1) throw std::runtime_error(name + " is no table");
    Rows computed = Select("SELECT name FROM pragma_table_xinfo(?1) WHERE hidden <> 0", {name});
    if (computed.Next())
        throw std::runtime_error(name + '.' + computed.Text(0).value_or("") +
                                 " is computed and not stored");
}

Recordset Database::OpenRecordset(const std::string& name) const {
    DemandTable(name);
    auto table = std::make_shared<OpenTable>();
    table->file = file_;
    table->name = name;
    SQLite::Statement all(*file_, "SELECT * FROM " + Quoted(name));
    for (int i = 0; i < all.getColumnCount(); ++i) table->fields.emplace_back(all.getColumnName(i));
    FindKey(*table);
    return Recordset(std::move(table));
}

}  // namespace vardel
