#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace host {

/// A failure of SQLite.
struct SqliteError : std::runtime_error {
    SqliteError(int failure, const std::string& sentence) : runtime_error(sentence), code(failure) {}
    int code;  ///< SQLite's primary result code
};

/// A statement with values bound to its parameters. Raises `SqliteError`.
class Statement {
public:
    Statement(sqlite3* database, std::string_view sql);

    Statement& Bind(std::int64_t value);
    Statement& Bind(int value) { return Bind(std::int64_t{value}); }
    Statement& Bind(std::string_view text);
    Statement& BindNull();
    /// Goes to the next row; false at the end.
    bool Step();
    /// Does the statement, and makes it ready for other values.
    void Run();
    /// Makes the statement ready for other values.
    void Reset() noexcept;

    std::int64_t Integer(int column) const;
    /// Valid until the next step.
    std::string_view Text(int column) const;
    bool IsNull(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    [[noreturn]] void Fail() const;

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_next = 1;  // the parameter to bind
};

/// An open database. Raises `SqliteError`.
class Database {
public:
    /// Opens a file, which is made where there is none, or a database in memory for an empty path.
    explicit Database(const std::string& path);

    void Run(const char* sql);
    Statement Prepare(std::string_view sql) { return Statement(m_database.get(), sql); }
    /// A statement that is prepared once, ready for values. `sql` is a literal, known by its address.
    Statement& Cached(const char* sql);
    std::int64_t Integer(const char* sql);
    std::int64_t LastRow() const;

private:
    struct Close {
        void operator()(sqlite3* database) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> m_database;
    std::unordered_map<const char*, Statement> m_statements;  // the last member: they use the database
};

/// Changes a database at once or, where it is left before `Commit`, not at all.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    Database& m_database;
    bool m_open = true;
};

}  // namespace host
