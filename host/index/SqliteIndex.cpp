#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "files/Paths.h"
#include "host/LibraryIndex.h"
#include "host/index/Sqlite.h"
#include "inspect/Json.h"
#include "report/ImportReport.h"

namespace host {

namespace {

// Names of parts never begin with a point. The file has a directory of its own, because SQLite makes and
// removes files beside it: so the time of the library's directory tells when a part was stored.
constexpr const char* kFolder = ".veka-index";
constexpr const char* kFile = "parts.sqlite";

constexpr std::int64_t kVersion = 3;
constexpr std::int64_t kApplication = 0x56454B49;  // what marks the file as one of ours
constexpr std::size_t kAtOnce = 512;               // parts that one transaction takes
constexpr std::size_t kMostTerms = 64;
constexpr std::size_t kFew = 8192;
constexpr auto kAsk = std::chrono::milliseconds(50);

constexpr const char* kTables = R"(
CREATE TABLE parts(
  id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, fileName TEXT NOT NULL, number TEXT NOT NULL COLLATE NOCASE,
  manufacturer TEXT NOT NULL COLLATE NOCASE, description TEXT NOT NULL COLLATE NOCASE,
  functionalType TEXT NOT NULL COLLATE NOCASE, packageType TEXT NOT NULL COLLATE NOCASE,
  pins INTEGER NOT NULL, size INTEGER NOT NULL, hash INTEGER NOT NULL, stored INTEGER NOT NULL,
  directory INTEGER NOT NULL, modified INTEGER NOT NULL, inode INTEGER NOT NULL,
  errors INTEGER, warnings INTEGER, notes INTEGER, problem TEXT, origin TEXT NOT NULL, lists TEXT NOT NULL);
CREATE INDEX byNumber ON parts(number) WHERE problem IS NULL;
CREATE INDEX byManufacturer ON parts(manufacturer);
CREATE INDEX byPins ON parts(pins);
CREATE TABLE names(kind INTEGER NOT NULL, name TEXT NOT NULL COLLATE NOCASE, part INTEGER NOT NULL,
  PRIMARY KEY(kind, name, part)) WITHOUT ROWID;
CREATE TABLE state(key TEXT PRIMARY KEY, value INTEGER NOT NULL);
CREATE VIRTUAL TABLE words USING fts5(text, tokenize="unicode61 remove_diacritics 2", prefix="1 2 3");
CREATE VIRTUAL TABLE pieces USING fts5(text, tokenize="trigram");
INSERT INTO words(words, rank) VALUES('hashsize', 8388608), ('automerge', 8);
INSERT INTO pieces(pieces, rank) VALUES('hashsize', 8388608), ('automerge', 8);
)";

enum class Kind { Text, Number, List };

/// A field that a condition can have.
struct Field {
    const char* name;
    Kind kind;
    const char* column;  ///< of the parts, or the kind of a name
};

constexpr Field kFields[] = {
    {"number", Kind::Text, "number"},
    {"manufacturer", Kind::Text, "manufacturer"},
    {"description", Kind::Text, "description"},
    {"type", Kind::Text, "functionalType"},
    {"package-type", Kind::Text, "packageType"},
    {"package", Kind::List, "0"},
    {"footprint", Kind::List, "1"},
    {"symbol", Kind::List, "2"},
    {"family", Kind::List, "3"},
    {"company-number", Kind::List, "4"},
    {"pins", Kind::Number, "pins"},
    {"size", Kind::Number, "size"},
    {"errors", Kind::Number, "errors"},
    {"warnings", Kind::Number, "warnings"},
    {"notes", Kind::Number, "notes"},
};

const Field* FindField(const std::string& name) {
    for (const Field& field : kFields)
        if (name == field.name) return &field;
    return nullptr;
}

const char* ColumnOf(SortBy sortBy) {
    switch (sortBy) {
        case SortBy::Manufacturer:
            return "manufacturer";
        case SortBy::Description:
            return "description";
        case SortBy::PackageType:
            return "packageType";
        case SortBy::Pins:
            return "pins";
        case SortBy::Size:
            return "size";
        case SortBy::Stored:
            return "stored";
        case SortBy::Number:
            break;
    }
    return "number";
}

/// The lists of a part. The kind of their names is their place here.
constexpr std::vector<std::string> PartFacts::*kLists[] = {&PartFacts::packages, &PartFacts::footprints,
                                                           &PartFacts::symbols, &PartFacts::families,
                                                           &PartFacts::companyNumbers};

/// The lists of a part as one text: for each name its kind, its length, a colon and the name itself.
std::string JoinLists(const PartFacts& facts) {
    std::string lists;
    for (std::size_t kind = 0; kind < std::size(kLists); ++kind)
        for (const std::string& name : facts.*kLists[kind])
            lists += static_cast<char>('0' + kind) + std::to_string(name.size()) + ':' + name;
    return lists;
}

/// Takes `JoinLists` apart. What follows a fault in a damaged text is left out.
void SplitLists(std::string_view lists, PartFacts& facts) {
    while (!lists.empty()) {
        const std::size_t kind = static_cast<std::size_t>(lists[0] - '0');
        std::size_t size = 0;
        const char* const end = lists.data() + lists.size();
        const auto [colon, error] = std::from_chars(lists.data() + 1, end, size);
        if (kind >= std::size(kLists) || error != std::errc() || colon == end || *colon != ':') return;
        lists.remove_prefix(static_cast<std::size_t>(colon + 1 - lists.data()));
        if (size > lists.size()) return;
        (facts.*kLists[kind]).emplace_back(lists.substr(0, size));
        lists.remove_prefix(size);
    }
}

/// A text that the search reads: valid UTF-8 without a zero byte.
std::string Searchable(std::string_view text) {
    std::string searchable = veka::MarkedUtf8(text);
    std::replace(searchable.begin(), searchable.end(), '\0', ' ');
    return searchable;
}

/// The words of a text between blanks.
std::vector<std::string> Terms(const std::string& text) {
    constexpr std::string_view kBlanks(" \t\n\v\f\r\0", 7);
    std::vector<std::string> terms;
    for (std::size_t end = 0; terms.size() < kMostTerms;) {
        const std::size_t begin = text.find_first_not_of(kBlanks, end);
        if (begin == std::string::npos) break;
        end = std::min(text.find_first_of(kBlanks, begin), text.size());
        terms.push_back(text.substr(begin, end - begin));
    }
    return terms;
}

/// A term as one phrase of the search's language, in which no character has a meaning.
std::string Phrase(const std::string& term) {
    std::string phrase = "\"";
    for (const char c : term) phrase.append(c == '"' ? 2 : 1, c);
    return phrase + '"';
}

std::size_t Characters(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

/// A pattern of LIKE, with the escape character "\"; `*` stands for any characters where it is wild.
std::string Pattern(const std::string& text, bool wild) {
    std::string pattern;
    for (const char c : text) {
        if (c == '*' && wild) {
            pattern += '%';
            continue;
        }
        if (c == '%' || c == '_' || c == '\\') pattern += '\\';
        pattern += c;
    }
    return pattern;
}

const char* Operator(Condition::Comparison comparison) {
    switch (comparison) {
        case Condition::Comparison::NotEqual:
            return " <> ?";
        case Condition::Comparison::Less:
            return " < ?";
        case Condition::Comparison::LessOrEqual:
            return " <= ?";
        case Condition::Comparison::Greater:
            return " > ?";
        case Condition::Comparison::GreaterOrEqual:
            return " >= ?";
        case Condition::Comparison::Equal:
            break;
    }
    return " = ?";
}

/// The conditions of a question to the database, piece by piece.
class Conditions {
public:
    explicit Conditions(const PartQuery& query) {
        for (const Condition& condition : query.where) AddCondition(condition);
    }

    /// Parts of which ids in JSON are given, too.
    void AddIds(std::string ids) {
        m_sql += " AND id IN (SELECT value FROM json_each(?))";
        AddText(std::move(ids));
    }
    const std::string& Sql() const { return m_sql; }
    void Bind(Statement& statement) const {
        for (const auto& [isNumber, number, text] : m_values)
            isNumber ? statement.Bind(number) : statement.Bind(text);
    }

private:
    struct Value {
        bool isNumber;
        std::int64_t number;
        std::string text;
    };

    void AddText(std::string text) { m_values.push_back({false, 0, std::move(text)}); }

    void AddCondition(const Condition& condition) {
        const Field* const field = FindField(condition.field);
        if (!field) throw QueryError("there is no field " + condition.field);
        if (field->kind == Kind::Number) {
            m_sql += " AND " + std::string(field->column) + Operator(condition.comparison);
            m_values.push_back({true, std::stoll(condition.value), ""});
            return;
        }
        const bool wild = condition.value.find('*') != std::string::npos;
        const std::string column = field->kind == Kind::List ? "name" : field->column;
        const std::string comparison = wild ? column + R"( LIKE ? ESCAPE '\')" : column + " = ?";
        m_sql += condition.comparison == Condition::Comparison::NotEqual ? " AND NOT " : " AND ";
        m_sql += field->kind == Kind::List
                     ? "id IN (SELECT part FROM names WHERE kind = " + std::string(field->column) + " AND " +
                           comparison + ')'
                     : '(' + comparison + ')';
        AddText(wild ? Pattern(condition.value, true) : condition.value);
    }

    std::string m_sql;
    std::vector<Value> m_values;
};

/// True if a failure says that the file holds nothing that can be used.
bool IsDamage(const SqliteError& error) {
    return error.code == SQLITE_CORRUPT || error.code == SQLITE_NOTADB || error.code == SQLITE_FORMAT;
}

/// A file of an index that a newer program made.
struct NewerIndex : std::runtime_error {
    using runtime_error::runtime_error;
};

class SqliteIndex : public LibraryIndex {
public:
    SqliteIndex(const std::filesystem::path& library, unsigned jobs)
        : m_library(std::filesystem::exists(library) ? std::filesystem::canonical(library) : library),
          m_jobs(jobs) {
        OpenFile();
    }

    void Refresh(const IndexProgress& progress) override {
        Guarded([&] { RefreshNow(progress); }, false);
        m_refreshed = true;
    }
    void Add(const std::vector<StoredPart>& parts) override {
        const auto add = [&] {
            // The next program that uses the index notices the parts by itself.
            if (m_inMemory) throw IndexError(m_whyInMemory);
            if (!m_adding) m_adding.emplace(*this);
            for (const StoredPart& part : parts)
                if (!HasRow(part)) Insert(part.facts, part.stamp, nullptr, part.origin);
        };
        Guarded(add, false);
    }
    void Commit() override {
        const auto commit = [&, begun = m_adding.has_value()] {
            // What was added is lost with the file.
            if (begun && m_inMemory) throw IndexError(m_whyInMemory);
            if (m_adding) m_adding->Commit();
            m_adding.reset();
        };
        Guarded(commit, false);
    }
    std::vector<std::int64_t> Find(const PartQuery& query) override {
        return Guarded([&] { return FindNow(query); });
    }
    std::optional<ListedPart> Part(std::int64_t id) override {
        return Guarded([&] { return PartNow(id); });
    }
    std::size_t Size() override {
        return Guarded([&] {
            return static_cast<std::size_t>(
                m_database->Integer("SELECT count(*) FROM parts WHERE problem IS NULL"));
        });
    }
    std::vector<std::string> Verify(const IndexProgress& progress) override {
        return Guarded([&] { return VerifyNow(progress); });
    }

private:
    /// What the index knows of a part without its texts.
    struct Known {
        std::int64_t id;
        PartStamp stamp;
        std::int64_t hash;
        bool hasFindings;
    };

    /// A name that has to go into the table of names.
    struct NewName {
        int kind;
        std::string name;
        std::int64_t part;
    };

    /// A transaction that inserts parts. Their names are inserted at its end, sorted: then neighbours are on
    /// one page of the table.
    class Change {
    public:
        explicit Change(SqliteIndex& index) : m_index(index), m_transaction(*index.m_database) {
            m_index.m_newNames.clear();
        }
        void Commit() {
            m_index.InsertNames();
            m_transaction.Commit();
        }

    private:
        SqliteIndex& m_index;
        Transaction m_transaction;
    };

    std::string FilePath() const {
        return std::string(veka::FromPath(m_library.Path() / kFolder / kFile).View());
    }

    /// Does something with the database. A damaged file is made again; where a file cannot be used for
    /// another reason, an index in memory takes its place.
    template <class Deed>
    auto Guarded(Deed deed, bool refresh = true) -> decltype(deed()) {
        for (int attempt = 0;; ++attempt) try {
                return deed();
            } catch (const SqliteError& error) {
                m_adding.reset();
                m_database.reset();
                if (m_inMemory || attempt > 1)
                    throw IndexError("the index of the library cannot be used: " + std::string(error.what()));
                if (IsDamage(error) && attempt == 0)
                    RemoveFile("the index of the library was damaged and is made again");
                else
                    OpenMemory(error.what());
                if (!m_database) OpenFile();
                if (refresh) RefreshNow(nullptr);
            }
    }
    void OpenFile() {
        for (int attempt = 0; !m_database; ++attempt) try {
                const Directory folder = m_library.OpenOrMake(kFolder);
                m_database.emplace(FilePath());
                Prepare();
            } catch (const SqliteError& error) {
                m_database.reset();
                if (IsDamage(error) && attempt == 0)
                    RemoveFile("the index of the library was damaged and is made again");
                else
                    OpenMemory(error.what());
            } catch (const NewerIndex& error) {
                OpenMemory(error.what());
            } catch (const StoreError& error) {
                OpenMemory(error.what());
            }
    }
    void OpenMemory(const std::string& reason) {
        m_remarks.push_back("the index of the library is made in memory: " + reason);
        m_database.emplace("");
        m_inMemory = true;
        m_whyInMemory = reason;
        m_database->Run(kTables);
    }
    void RemoveFile(const std::string& remark) {
        m_remarks.push_back(remark);
        m_library.RemoveAll(kFolder);
    }
    /// Makes the tables where there are none.
    void Prepare() {
        const std::int64_t version = m_database->Integer("PRAGMA user_version");
        const std::int64_t application = m_database->Integer("PRAGMA application_id");
        const bool empty = m_database->Integer("SELECT count(*) FROM sqlite_schema") == 0;
        if (!empty && application == kApplication && version > kVersion)
            throw NewerIndex("its file was made by a newer version of this program");
        if (!empty && application == kApplication && version == kVersion) return;
        if (!empty) {
            m_database.reset();
            RemoveFile(
                "the index of the library was made by another program or an older version and is made again");
            const Directory folder = m_library.OpenOrMake(kFolder);
            m_database.emplace(FilePath());
        }
        m_database->Integer("PRAGMA journal_mode = WAL");
        m_database->Run("PRAGMA synchronous = NORMAL");
        Transaction transaction(*m_database);
        // Another program may have been faster.
        if (m_database->Integer("SELECT count(*) FROM sqlite_schema") == 0) {
            m_database->Run(kTables);
            m_database->Run(("PRAGMA application_id = " + std::to_string(kApplication)).c_str());
            m_database->Run(("PRAGMA user_version = " + std::to_string(kVersion)).c_str());
        }
        transaction.Commit();
    }

    std::int64_t State(const char* key) {
        Statement statement = m_database->Prepare("SELECT value FROM state WHERE key = ?");
        statement.Bind(key);
        return statement.Step() ? statement.Integer(0) : -1;
    }
    void SetState(const char* key, std::int64_t value) {
        m_database->Prepare("INSERT OR REPLACE INTO state VALUES(?, ?)").Bind(key).Bind(value).Run();
    }

    /// True if the index has this very part.
    bool HasRow(const StoredPart& part) {
        Statement& find =
            m_database->Cached("SELECT directory, modified, inode, hash, origin FROM parts WHERE name = ?");
        find.Bind(part.facts.name);
        return find.Step() && find.Integer(0) == static_cast<std::int64_t>(part.stamp.directory) &&
               find.Integer(1) == part.stamp.file.modified &&
               find.Integer(2) == static_cast<std::int64_t>(part.stamp.file.inode) &&
               find.Integer(3) == static_cast<std::int64_t>(part.facts.hash) && find.Text(4) == part.origin;
    }
    /// Puts a part in the place of the one of its name. `problem` says why a part has no facts.
    void Insert(const PartFacts& facts, const PartStamp& stamp, const std::string* problem,
                const std::string& origin = "") {
        Remove(facts.name);
        Statement& insert = m_database->Cached(
            "INSERT INTO parts(name, fileName, number, manufacturer, description, functionalType, "
            "packageType, "
            "pins, size, hash, stored, directory, modified, inode, problem, origin, lists) "
            "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        insert.Bind(facts.name).Bind(stamp.fileName).Bind(facts.number).Bind(facts.manufacturer);
        insert.Bind(facts.description).Bind(facts.functionalType).Bind(facts.packageType).Bind(facts.pins);
        insert.Bind(static_cast<std::int64_t>(problem ? stamp.file.size : facts.size));
        insert.Bind(static_cast<std::int64_t>(facts.hash)).Bind(stamp.file.modified / 1'000'000'000);
        insert.Bind(static_cast<std::int64_t>(stamp.directory)).Bind(stamp.file.modified);
        insert.Bind(static_cast<std::int64_t>(stamp.file.inode));
        problem ? insert.Bind(*problem) : insert.BindNull();
        insert.Bind(origin).Bind(JoinLists(facts));
        insert.Run();
        if (problem) return;
        const std::int64_t id = m_database->LastRow();
        std::string words = facts.number + ' ' + facts.manufacturer + ' ' + facts.description + ' ' +
                            facts.functionalType + ' ' + facts.packageType;
        // Many names of a part are its number, or each other.
        std::set<std::string_view> there = {facts.number, facts.functionalType, facts.packageType};
        for (std::size_t kind = 0; kind < std::size(kLists); ++kind)
            for (const std::string& name : facts.*kLists[kind]) {
                m_newNames.push_back({static_cast<int>(kind), name, id});
                if (there.insert(name).second) words += ' ' + name;
            }
        std::string pieces = facts.number;
        std::string_view last = facts.number;
        // The next number often begins with the one before.
        for (auto name = facts.companyNumbers.rbegin(); name != facts.companyNumbers.rend(); ++name) {
            if (last.starts_with(*name)) continue;
            pieces += ' ' + *name;
            last = *name;
        }
        m_database->Cached("INSERT INTO words(rowid, text) VALUES(?, ?)")
            .Bind(id)
            .Bind(Searchable(words))
            .Run();
        m_database->Cached("INSERT INTO pieces(rowid, text) VALUES(?, ?)")
            .Bind(id)
            .Bind(Searchable(pieces))
            .Run();
    }
    void Remove(const std::string& name) {
        Statement& find = m_database->Cached("SELECT id, lists FROM parts WHERE name = ?").Bind(name);
        if (!find.Step()) return;
        const std::int64_t id = find.Integer(0);
        PartFacts lists;
        SplitLists(find.Text(1), lists);
        find.Reset();
        InsertNames();  // perhaps those of this part
        for (std::size_t kind = 0; kind < std::size(kLists); ++kind)
            for (const std::string& one : lists.*kLists[kind])
                m_database->Cached("DELETE FROM names WHERE kind = ? AND name = ? AND part = ?")
                    .Bind(static_cast<int>(kind))
                    .Bind(one)
                    .Bind(id)
                    .Run();
        for (const char* sql : {"DELETE FROM words WHERE rowid = ?", "DELETE FROM pieces WHERE rowid = ?",
                                "DELETE FROM parts WHERE id = ?"})
            m_database->Cached(sql).Bind(id).Run();
    }
    void InsertNames() {
        std::sort(m_newNames.begin(), m_newNames.end(), [](const NewName& one, const NewName& other) {
            if (one.kind != other.kind) return one.kind < other.kind;
            const int order = sqlite3_stricmp(one.name.c_str(), other.name.c_str());
            return order != 0 ? order < 0 : one.part < other.part;
        });
        for (const NewName& name : m_newNames)
            // A part can have a name twice.
            m_database->Cached("INSERT OR IGNORE INTO names VALUES(?, ?, ?)")
                .Bind(name.kind)
                .Bind(name.name)
                .Bind(name.part)
                .Run();
        m_newNames.clear();
    }

    std::unordered_map<std::string, Known> KnownParts() {
        std::unordered_map<std::string, Known> known;
        Statement all = m_database->Prepare(
            "SELECT id, name, fileName, directory, modified, inode, size, hash, errors, problem FROM parts");
        while (all.Step()) {
            PartStamp stamp{static_cast<std::uint64_t>(all.Integer(3)), std::string(all.Text(2)), {}};
            stamp.file.modified = all.Integer(4);
            stamp.file.inode = static_cast<std::uint64_t>(all.Integer(5));
            stamp.file.size = static_cast<std::uint64_t>(all.Integer(6));
            known.emplace(all.Text(1),
                          Known{all.Integer(0), stamp, all.Integer(7), !all.IsNull(8) || !all.IsNull(9)});
        }
        return known;
    }
    static bool IsSame(const PartStamp& one, const PartStamp& other) {
        return one.directory == other.directory && one.fileName == other.fileName &&
               one.file.modified == other.file.modified && one.file.inode == other.file.inode &&
               one.file.size == other.file.size;
    }

    void RefreshNow(const IndexProgress& progress) {
        const Directory library(m_library.Path());  // what the path names now
        const EntryStatus self = library.Status(".");
        if (State("modified") == self.modified && State("inode") == static_cast<std::int64_t>(self.inode))
            return;
        std::unordered_map<std::string, Known> known = KnownParts();
        std::vector<std::string> fresh;
        for (const std::string& name : StoredNames(library)) {
            const auto found = known.find(name);
            if (found == known.end()) {
                fresh.push_back(name);
                continue;
            }
            if (!IsSame(found->second.stamp, CurrentStamp(library, name, found->second.stamp.fileName)))
                fresh.push_back(name);
            known.erase(found);
        }
        const bool whole = Read(library, fresh, progress);
        Change change(*this);
        for (const auto& [name, part] : known) Remove(name);
        // A part that is stored in the same tick of the clock would not be noticed by the time.
        using namespace std::chrono;
        const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
        const bool settled = whole && now - self.modified > 2'000'000'000;
        SetState("modified", settled ? self.modified : -2);
        SetState("inode", static_cast<std::int64_t>(self.inode));
        change.Commit();
    }
    /// Reads parts and takes them over; false where `progress` ended that.
    bool Read(const Directory& library, const std::vector<std::string>& names,
              const IndexProgress& progress) {
        std::vector<PartStamp> stamps(names.size());
        ReadAhead reader(
            names.size(),
            [&](std::size_t place) {
                StoredFile stored = ReadStored(library, names[place]);
                stamps[place] = stored.stamp;
                return std::move(stored.file);
            },
            m_jobs);
        return TakeOver(reader, names.size(), progress, [&](std::size_t place, CheckedFile& file) {
            PartFacts facts = std::move(file.facts);
            facts.name = names[place];
            Insert(facts, stamps[place], file.failure ? &file.failure->sentence : nullptr);
        });
    }
    /// Takes over the files that are read ahead, in order, `kAtOnce` in one transaction. False where
    /// `progress` ended that.
    template <class Deed>
    bool TakeOver(ReadAhead& reader, std::size_t count, const IndexProgress& progress, Deed deed) {
        std::size_t done = 0;
        for (bool ended = false; !ended;) {
            Change change(*this);
            for (const std::size_t end = done + kAtOnce; done < end && !ended;) {
                CheckedFile file;
                const ReadAhead::Answer answer = reader.Next(file, kAsk);
                if (progress && !progress(done, count)) reader.Stop();
                ended = answer == ReadAhead::Answer::End;
                if (answer == ReadAhead::Answer::File) deed(done++, file);
            }
            change.Commit();
        }
        return done == count;
    }

    using Ids = std::vector<std::int64_t>;  // sorted

    /// Takes the ids that a search finds, which come sorted.
    Ids IdsOf(const char* sql, const std::string& value) {
        Ids ids;
        Statement& statement = m_database->Cached(sql).Bind(value);
        while (statement.Step()) ids.push_back(statement.Integer(0));
        statement.Reset();
        return ids;
    }
    static Ids Both(const Ids& one, const Ids& other) {
        Ids both;
        std::set_union(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(both));
        return both;
    }
    Ids WithTerm(const std::string& raw) {
        // No text of the index has such a word.
        if (raw.size() > PartFacts::kLongest) return {};
        const std::string term = Searchable(raw);
        Ids ids = IdsOf("SELECT rowid FROM words WHERE words MATCH ?", Phrase(term) + " *");
        if (Characters(term) >= 3)
            ids = Both(ids, IdsOf("SELECT rowid FROM pieces WHERE pieces MATCH ?", Phrase(term)));
        const bool word = std::any_of(term.begin(), term.end(), [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        });
        // Marks and signs are no words, and a search for words does not find them.
        if (!word && ids.empty())
            ids = Both(ids, IdsOf(R"(SELECT id FROM parts WHERE number LIKE ? ESCAPE '\' ORDER BY id)",
                                  '%' + Pattern(term, false) + '%'));
        return ids;
    }
    /// The parts that have all terms of a text; nothing for a text without one.
    std::optional<Ids> WithAllTerms(const std::string& text) {
        std::optional<Ids> ids;
        for (const std::string& term : Terms(text)) {
            const Ids more = WithTerm(term);
            if (!ids) {
                ids = more;
                continue;
            }
            Ids common;
            std::set_intersection(ids->begin(), ids->end(), more.begin(), more.end(),
                                  std::back_inserter(common));
            ids = std::move(common);
        }
        return ids;
    }
    static std::string Json(const Ids& ids) {
        std::string json = "[";
        for (const std::int64_t id : ids) json += (json.size() > 1 ? "," : "") + std::to_string(id);
        return json + ']';
    }

    std::vector<std::int64_t> FindNow(const PartQuery& query) {
        if (!m_refreshed) RefreshNow(nullptr);
        m_refreshed = true;
        const bool byFindings = std::any_of(query.where.begin(), query.where.end(), [](const Condition& one) {
            return one.field == "errors" || one.field == "warnings" || one.field == "notes";
        });
        if (byFindings) MakeReports();
        const std::optional<Ids> ids = WithAllTerms(query.text);
        Conditions conditions(query);
        // The rows of a few ids are looked up and sorted. For many ids it is cheaper to go through all parts.
        const bool few = ids && ids->size() <= kFew;
        if (few) conditions.AddIds(Json(*ids));
        const std::string column = ColumnOf(query.sortBy.value_or(SortBy::Number));
        const char* const direction = query.descending ? " DESC" : "";
        Statement statement =
            m_database->Prepare("SELECT id, number FROM parts WHERE problem IS NULL" + conditions.Sql() +
                                " ORDER BY " + column + direction + ", id" + direction);
        conditions.Bind(statement);
        // The part of this very number, those that begin with the text, and the others.
        std::vector<std::int64_t> tiers[3];
        const bool byText = !query.sortBy && !query.text.empty();
        const int size = static_cast<int>(std::min<std::size_t>(query.text.size(), PartFacts::kLongest));
        while (statement.Step()) {
            const std::int64_t id = statement.Integer(0);
            if (ids && !few && !std::binary_search(ids->begin(), ids->end(), id)) continue;
            if (!byText) {
                tiers[0].push_back(id);
                continue;
            }
            const std::string_view number = statement.Text(1);
            const bool begins = number.size() >= static_cast<std::size_t>(size) &&
                                sqlite3_strnicmp(number.data(), query.text.data(), size) == 0;
            const int tier = !begins ? 2 : number.size() == static_cast<std::size_t>(size) ? 0 : 1;
            tiers[tier].push_back(id);
        }
        for (const int tier : {1, 2}) tiers[0].insert(tiers[0].end(), tiers[tier].begin(), tiers[tier].end());
        return std::move(tiers[0]);
    }

    std::optional<ListedPart> PartNow(std::int64_t id) {
        Statement& row = m_database->Cached(
            "SELECT name, fileName, number, manufacturer, description, functionalType, packageType, pins, "
            "size, "
            "hash, stored, errors, warnings, notes, origin, lists FROM parts WHERE id = ?");
        row.Bind(id);
        if (!row.Step()) return std::nullopt;
        ListedPart part;
        PartFacts& facts = part.facts;
        std::string* const texts[] = {&facts.name,         &facts.fileName,    &facts.number,
                                      &facts.manufacturer, &facts.description, &facts.functionalType,
                                      &facts.packageType};
        for (int i = 0; i < static_cast<int>(std::size(texts)); ++i) *texts[i] = row.Text(i);
        facts.pins = static_cast<int>(row.Integer(7));
        facts.size = static_cast<std::uint64_t>(row.Integer(8));
        facts.hash = static_cast<std::uint64_t>(row.Integer(9));
        part.stored = row.Integer(10);
        part.origin = row.Text(14);
        if (!row.IsNull(11)) part.findings = FindingCounts{row.Integer(11), row.Integer(12), row.Integer(13)};
        SplitLists(row.Text(15), facts);
        return part;
    }

    /// Makes the reports of the parts that have none.
    void MakeReports() {
        std::vector<std::pair<std::int64_t, std::string>> parts;
        {
            Statement missing =
                m_database->Prepare("SELECT id, name FROM parts WHERE errors IS NULL AND problem IS NULL");
            while (missing.Step()) parts.emplace_back(missing.Integer(0), missing.Text(1));
        }
        ForEachReport(parts, nullptr, [](const auto&, const StoredFile&, const FindingCounts&) {});
    }
    /// Reads parts of the index with their reports, and puts the reports into the index. False where
    /// `progress` ended that.
    template <class Deed>
    bool ForEachReport(const std::vector<std::pair<std::int64_t, std::string>>& parts,
                       const IndexProgress& progress, Deed deed) {
        const Directory library(m_library.Path());
        std::vector<std::pair<PartStamp, FindingCounts>> read(parts.size());
        ReadAhead reader(
            parts.size(),
            [&](std::size_t place) {
                StoredFile stored = ReadStored(library, parts[place].second);
                if (!stored.file.failure) {
                    const veka::ImportReport report = veka::ReportImport(stored.file.content.bytes);
                    const auto count = [&](veka::Severity severity) {
                        return static_cast<std::int64_t>(report.Count(severity));
                    };
                    read[place].second = {count(veka::Severity::Error), count(veka::Severity::Warning),
                                          count(veka::Severity::Note)};
                }
                read[place].first = stored.stamp;
                return std::move(stored.file);
            },
            m_jobs);
        return TakeOver(reader, parts.size(), progress, [&](std::size_t place, CheckedFile& file) {
            const auto& [stamp, counts] = read[place];
            if (!file.failure)
                m_database->Cached("UPDATE parts SET errors = ?, warnings = ?, notes = ? WHERE id = ?")
                    .Bind(counts.errors)
                    .Bind(counts.warnings)
                    .Bind(counts.notes)
                    .Bind(parts[place].first)
                    .Run();
            deed(parts[place], StoredFile{std::move(file), stamp}, counts);
        });
    }

    std::vector<std::string> VerifyNow(const IndexProgress& progress) {
        std::vector<std::string> sentences;
        m_database->Run("INSERT INTO words(words) VALUES('integrity-check')");
        m_database->Run("INSERT INTO pieces(pieces) VALUES('integrity-check')");
        {
            // Also what no question would read.
            Statement check = m_database->Prepare("PRAGMA quick_check(1)");
            if (check.Step() && check.Text(0) != "ok")
                throw SqliteError(SQLITE_CORRUPT, std::string(check.Text(0)));
        }
        RefreshNow(progress);
        m_refreshed = true;
        {
            Statement problems =
                m_database->Prepare("SELECT problem FROM parts WHERE problem IS NOT NULL ORDER BY name");
            while (problems.Step()) sentences.emplace_back(problems.Text(0));
        }
        std::vector<std::pair<std::int64_t, std::string>> parts;
        {
            Statement all =
                m_database->Prepare("SELECT id, name FROM parts WHERE problem IS NULL ORDER BY name");
            while (all.Step()) parts.emplace_back(all.Integer(0), all.Text(1));
        }
        const std::unordered_map<std::string, Known> known = KnownParts();
        ForEachReport(parts, progress, [&](const auto& part, const StoredFile& stored, const FindingCounts&) {
            const std::string quoted = '"' + part.second + '"';
            const Known& row = known.at(part.second);
            const bool same = IsSame(row.stamp, stored.stamp);
            if (stored.file.failure)
                sentences.push_back(stored.file.failure->sentence);
            else if (same && static_cast<std::uint64_t>(row.hash) != stored.file.facts.hash)
                sentences.push_back("the content of " + quoted +
                                    " is not what was stored, and its date has not changed");
            else if (same && !Agrees(part.first, stored.file.facts))
                sentences.push_back("the index does not say of " + quoted +
                                    " what the file says; deleting \"" + std::string(kFolder) +
                                    "\" makes the index again");
        });
        return sentences;
    }
    /// True if the index says of a part what its file says.
    bool Agrees(std::int64_t id, const PartFacts& facts) {
        const std::optional<ListedPart> part = PartNow(id);
        if (!part) return true;  // another program has removed it since
        const PartFacts& listed = part->facts;
        bool same =
            listed.number == facts.number && listed.manufacturer == facts.manufacturer &&
            listed.description == facts.description && listed.functionalType == facts.functionalType &&
            listed.packageType == facts.packageType && listed.pins == facts.pins && listed.size == facts.size;
        for (std::size_t kind = 0; kind < std::size(kLists); ++kind) {
            same = same && listed.*kLists[kind] == facts.*kLists[kind];
            for (const std::string& name : facts.*kLists[kind]) {
                Statement& find =
                    m_database->Cached("SELECT 1 FROM names WHERE kind = ? AND name = ? AND part = ?");
                same = find.Bind(static_cast<int>(kind)).Bind(name).Bind(id).Step() && same;
                find.Reset();
            }
        }
        return same;
    }

    const Directory m_library;
    const unsigned m_jobs;
    std::optional<Database> m_database;
    bool m_inMemory = false;
    std::string m_whyInMemory;
    bool m_refreshed = false;
    std::vector<NewName> m_newNames;  // of the change that is being made
    std::optional<Change> m_adding;   // from an `Add` to its `Commit`
};

}  // namespace

Condition ParseCondition(const std::string& text) {
    using Comparison = Condition::Comparison;
    constexpr std::pair<std::string_view, Comparison> kComparisons[] = {
        {"!=", Comparison::NotEqual}, {"<=", Comparison::LessOrEqual}, {">=", Comparison::GreaterOrEqual},
        {"=", Comparison::Equal},     {"<", Comparison::Less},         {">", Comparison::Greater}};
    const std::size_t place = text.find_first_of("!=<>");
    for (const auto& [sign, comparison] : kComparisons) {
        if (place == std::string::npos || text.compare(place, sign.size(), sign) != 0) continue;
        Condition condition{text.substr(0, place), comparison, text.substr(place + sign.size())};
        const Field* const field = FindField(condition.field);
        if (!field) break;
        if (field->kind == Kind::Number) {
            std::int64_t number = 0;
            const char* const end = condition.value.data() + condition.value.size();
            const auto [rest, error] = std::from_chars(condition.value.data(), end, number);
            if (error != std::errc() || rest != end)
                throw QueryError(condition.field + " is a number, and \"" + condition.value + "\" is none");
        } else if (comparison != Comparison::Equal && comparison != Comparison::NotEqual) {
            throw QueryError(condition.field + " is a text, which can only be = or != another one");
        }
        return condition;
    }
    throw QueryError("\"" + text + "\" is no condition such as pins=8; the fields are " + ConditionFields());
}

std::string ConditionFields() {
    std::string fields;
    for (const Field& field : kFields) fields += (fields.empty() ? "" : ", ") + std::string(field.name);
    return fields;
}

std::unique_ptr<LibraryIndex> OpenIndex(const std::filesystem::path& library, unsigned jobs) {
    return std::make_unique<SqliteIndex>(library, jobs);
}

bool HasIndex() {
    return true;
}

}  // namespace host
