#include "host/index/Sqlite.h"

#include <sqlite3.h>

#include <system_error>

namespace host {

namespace {

constexpr int kBusyMilliseconds = 5000;

/// The system's reason for the last failure; 0 where none is known.
int SystemReason(sqlite3* database) {
    int reason = sqlite3_system_errno(database);
    if (reason != 0) return reason;
    // What fails inside of COMMIT is known by the file alone.
    sqlite3_file* log = nullptr;
    if (sqlite3_file_control(database, nullptr, SQLITE_FCNTL_JOURNAL_POINTER, &log) == SQLITE_OK && log &&
        log->pMethods)
        log->pMethods->xFileControl(log, SQLITE_FCNTL_LAST_ERRNO, &reason);
    if (reason == 0) sqlite3_file_control(database, nullptr, SQLITE_FCNTL_LAST_ERRNO, &reason);
    return reason;
}

/// Raises what failed last, with the reason that the system gave.
[[noreturn]] void Raise(int result, sqlite3* database) {
    const int code = result & 0xFF;
    std::string sentence = sqlite3_errmsg(database);
    if (code == SQLITE_FULL) sentence = "the disk is full";  // no index reaches SQLite's own limit
    const int reason = code == SQLITE_IOERR ? SystemReason(database) : 0;
    if (reason != 0) sentence += ": " + std::system_category().message(reason);
    throw SqliteError(code, sentence);
}

void Check(int result, sqlite3* database) {
    if (result != SQLITE_OK) Raise(result, database);
}

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr),
          database);
    m_statement.reset(statement);
}

void Statement::Fail() const {
    sqlite3* const database = sqlite3_db_handle(m_statement.get());
    Raise(sqlite3_errcode(database), database);
}

Statement& Statement::Bind(std::int64_t value) {
    if (sqlite3_bind_int64(m_statement.get(), m_next++, value) != SQLITE_OK) Fail();
    return *this;
}

Statement& Statement::Bind(std::string_view text) {
    // A null pointer would be the value NULL.
    const char* const bytes = text.empty() ? "" : text.data();
    if (sqlite3_bind_text64(m_statement.get(), m_next++, bytes, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8) !=
        SQLITE_OK)
        Fail();
    return *this;
}

Statement& Statement::BindNull() {
    if (sqlite3_bind_null(m_statement.get(), m_next++) != SQLITE_OK) Fail();
    return *this;
}

bool Statement::Step() {
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) Fail();
    return result == SQLITE_ROW;
}

void Statement::Run() {
    while (Step()) {
    }
    Reset();
}

void Statement::Reset() noexcept {
    sqlite3_reset(m_statement.get());
    m_next = 1;
}

std::int64_t Statement::Integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

std::string_view Statement::Text(int column) const {
    const void* const text = sqlite3_column_text(m_statement.get(), column);
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    return text ? std::string_view(static_cast<const char*>(text), static_cast<std::size_t>(size)) : "";
}

bool Statement::IsNull(int column) const {
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

void Database::Close::operator()(sqlite3* database) const noexcept {
    sqlite3_close_v2(database);
}

Database::Database(const std::string& path) {
    sqlite3* database = nullptr;
    // A link in the place of the file could lead to a file elsewhere.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW;
    const int result = sqlite3_open_v2(path.empty() ? ":memory:" : path.c_str(), &database, flags, nullptr);
    m_database.reset(database);
    if (!database) throw std::bad_alloc();
    Check(result, database);
    sqlite3_busy_timeout(database, kBusyMilliseconds);
    Run("PRAGMA cache_size = -32768");  // KB; less makes an import read pages of the index again and again
    Run("PRAGMA wal_autocheckpoint = 8192");  // pages; less makes an import write pages several times
    // What a damaged file says must not make SQLite do more than read it.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

void Database::Run(const char* sql) {
    Check(sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr), m_database.get());
}

Statement& Database::Cached(const char* sql) {
    const auto found = m_statements.find(sql);
    Statement& statement =
        found != m_statements.end() ? found->second : m_statements.emplace(sql, Prepare(sql)).first->second;
    statement.Reset();  // after a failure it is not ready
    return statement;
}

std::int64_t Database::Integer(const char* sql) {
    Statement statement = Prepare(sql);
    return statement.Step() ? statement.Integer(0) : 0;
}

std::int64_t Database::LastRow() const {
    return sqlite3_last_insert_rowid(m_database.get());
}

Transaction::Transaction(Database& database) : m_database(database) {
    m_database.Run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!m_open) return;
    try {
        m_database.Run("ROLLBACK");
    } catch (const SqliteError&) {
        // SQLite has rolled back by itself.
    }
}

void Transaction::Commit() {
    m_database.Run("COMMIT");
    m_open = false;
}

}  // namespace host
