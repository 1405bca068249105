#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "host/BatchImport.h"
#include "host/LibraryIndex.h"
#include "support/Children.h"
#include "support/Files.h"

namespace {

using host::LibraryIndex;
using host::ParseCondition;
using host::PartQuery;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct Made {
    std::string number;
    std::string rest = "";  // levels of the general data
};

std::string PartText(const Made& made) {
    return "(VEK (PARTGENERAL (MPN \"" + made.number + "\") " + made.rest + "))";
}

class Index : public testing::Test {
protected:
    Index() { std::filesystem::create_directory(Root()); }
    void SetUp() override {
        if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    std::filesystem::path File() const { return Root() / ".veka-index/parts.sqlite"; }
    void Store(const Made& made) {
        const host::ImportedPart part = host::ReadPart(directory.Write("part.veka", PartText(made)));
        host::Store(part, directory / "lib", host::Existing::Replace);
    }
    std::unique_ptr<LibraryIndex> Open() {
        auto index = host::OpenIndex(Root());
        index->Refresh();
        return index;
    }
    static std::vector<std::string> Numbers(LibraryIndex& index, const PartQuery& query) {
        std::vector<std::string> numbers;
        for (const std::int64_t id : index.Find(query)) {
            const auto part = index.Part(id);
            // Another program has replaced the part since it was found.
            if (!part) return Numbers(index, query);
            numbers.push_back(part->facts.number);
        }
        return numbers;
    }
    std::vector<std::string> Find(const std::string& text, const std::vector<std::string>& where = {}) {
        PartQuery query{text, {}};
        for (const std::string& condition : where) query.where.push_back(ParseCondition(condition));
        const auto index = Open();
        EXPECT_THAT(index->Remarks(), IsEmpty());
        return Numbers(*index, query);
    }

    test::TemporaryDirectory directory;
};

TEST_F(Index, FindsWordsBeginningsAndPartsOfANumber) {
    Store({"LM358-D", "(PARTDESC \"dual amplifier\") (MANUFACTURER Maker)"});
    Store({"TL072", "(PARTDESC \"quiet dual amplifier\") (CPN C-10072-X)"});
    Store({"BME280", "(PARTDESC Sensor)"});
    EXPECT_THAT(Find(""), ElementsAre("BME280", "LM358-D", "TL072"));
    EXPECT_THAT(Find("ampl"), ElementsAre("LM358-D", "TL072"));
    EXPECT_THAT(Find("DUAL quiet"), ElementsAre("TL072"));
    EXPECT_THAT(Find("358"), ElementsAre("LM358-D")) << "a part of the number";
    EXPECT_THAT(Find("me28"), ElementsAre("BME280"));
    EXPECT_THAT(Find("0072"), ElementsAre("TL072")) << "a company's number";
    EXPECT_THAT(Find("58-d"), ElementsAre("LM358-D"));
    EXPECT_THAT(Find("B"), ElementsAre("BME280"));
    EXPECT_THAT(Find("maker 358"), ElementsAre("LM358-D"));
    EXPECT_THAT(Find("nothing"), IsEmpty());
}

TEST_F(Index, FindsPartsByNamesThatRepeatOrContainEachOther) {
    Store({"PX-12",
           "(CPN C1234 C1234-A 234 c1234) (PRODUCTFAMILY Amplifier amplifier PX-12) (PARTDESC \"Quiet "
           "Amplifier\")"});
    Store({"AMP", "(CPN 12) (PRODUCTFAMILY Amp)"});
    EXPECT_THAT(Find("C1234"), ElementsAre("PX-12"));
    EXPECT_THAT(Find("1234-a"), ElementsAre("PX-12"));
    EXPECT_THAT(Find("234"), ElementsAre("PX-12"));
    EXPECT_THAT(Find("12"), ElementsAre("AMP", "PX-12")) << "a company's number, and a word of the number";
    EXPECT_THAT(Find("amplifier"), ElementsAre("PX-12"));
    EXPECT_THAT(Find("amp"), ElementsAre("AMP", "PX-12"));
    for (const char* where :
         {"company-number=234", "company-number=c1234", "family=AMPLIFIER", "family=px-12"})
        EXPECT_THAT(Find("", {where}), ElementsAre("PX-12")) << where;
    EXPECT_THAT(Find("", {"company-number=1234"}), IsEmpty());
    const auto index = Open();
    const auto ids = index->Find({"PX-12", {}});
    ASSERT_EQ(ids.size(), 1u);
    EXPECT_THAT(index->Part(ids[0])->facts.companyNumbers, ElementsAre("C1234", "C1234-A", "234", "c1234"))
        << "all of them in their order";
    EXPECT_THAT(index->Verify(), IsEmpty());
}

TEST_F(Index, APartThatIsReplacedIsNotFoundByItsFormerNames) {
    Store({"A", "(CPN OLD-1 BOTH) (PRODUCTFAMILY Old)"});
    Store({"B", "(CPN OLD-1)"});
    EXPECT_THAT(Find("", {"company-number=old-1"}), ElementsAre("A", "B"));
    Store({"A", "(CPN NEW-1 BOTH) (PRODUCTFAMILY New)"});
    EXPECT_THAT(Find("", {"company-number=old-1"}), ElementsAre("B"));
    EXPECT_THAT(Find("", {"family=old"}), IsEmpty());
    EXPECT_THAT(Find("old"), ElementsAre("B"));
    EXPECT_THAT(Find("", {"company-number=both", "family=new"}), ElementsAre("A"));
    std::filesystem::remove_all(Root() / "A");
    EXPECT_THAT(Find("", {"company-number=both"}), IsEmpty());
}

TEST_F(Index, TheVeryNumberComesFirstThenThoseThatBeginWithIt) {
    for (const char* number : {"A-BC1", "BC1", "BC10", "XBC1"}) Store({number});
    EXPECT_THAT(Find("bc1"), ElementsAre("BC1", "BC10", "A-BC1", "XBC1"));
}

TEST_F(Index, AnyTextOfTheUserIsValid) {
    Store({"A/1 x'", "(PARTDESC \"50% of_it*\")"});
    for (const std::string text :
         {"\"",  "'", "\"\"", "*",  "AND",  "NOT NEAR(",          "a AND",    "-",        "^",  "text:x",
          "(((", "%", "_",    "\\", "a\"b", "; DROP TABLE parts", "\xFF\xFE", "\xF0\x9F", "--", "/"})
        EXPECT_NO_THROW(Find(text)) << text;
    EXPECT_NO_THROW(Find(std::string("a\0b", 3)));
    EXPECT_NO_THROW(Find(std::string(20'000, 'x')));
    std::string words;
    for (int i = 0; i < 5000; ++i) words += "w" + std::to_string(i) + " ";
    EXPECT_NO_THROW(Find(words));
    EXPECT_THAT(Find("/"), ElementsAre("A/1 x'")) << "marks, too";
    EXPECT_THAT(Find("%"), IsEmpty()) << "and no mark has a meaning";
}

TEST_F(Index, FindsEachPartUnderItsNumberWhateverTheNumberIs) {
    const std::vector<std::string> numbers = {"A",        "a b",     "a  b",      "1",
                                              "12",       "1.2-3/4", "---",       "*",
                                              "%_\\",     "(A) OR",  "NEAR",      "NOT a* AND b",
                                              "\xC3\xA9", "\xFF",    "M\xC2\xB5", "\xF0\x9F\x98\x80",
                                              "x'y",      "A-1;--",  "A,B",       "a#b",
                                              "[1:2]",    "^A$",     "=1",        "\t.",
                                              "- -"};
    for (const std::string& number : numbers) Store({number});
    for (const std::string& number : numbers) {
        const std::vector<std::string> found = Find(number);
        ASSERT_THAT(found, testing::Contains(number));
        EXPECT_EQ(found[0].size(), number.size()) << number << " comes first";
    }
}

TEST_F(Index, FindsEachRealPartUnderItsNumber) {
    VEKA_NEEDS_CORPUS();
    host::Batch batch;
    batch.library = (directory / "lib").GetString();
    for (const std::filesystem::path& file : test::CorpusFiles())
        batch.files.push_back(veka::FromPath(file).GetString());
    const host::BatchTotals totals = host::ImportBatch(batch);
    EXPECT_EQ(totals.Left(), 0u);
    const auto index = Open();
    const host::Directory library(Root());
    const std::vector<std::string> names = host::StoredNames(library);
    EXPECT_GT(names.size(), 40u);
    for (const std::string& name : names) {
        const std::string number = host::ReadStored(library, name).file.facts.number;
        ASSERT_THAT(Numbers(*index, {number, {}}), testing::Contains(number));
    }
}

TEST_F(Index, FindsTheLongestWordThatItKeepsAndNoLongerOne) {
    const std::string longest(host::PartFacts::kLongest, 'x');
    Store({longest + "yz", "(PARTDESC short)"});
    EXPECT_EQ(Find(longest).size(), 1u);
    EXPECT_THAT(Find(longest + "y"), IsEmpty()) << "the index does not keep the end of the number";
    EXPECT_THAT(Find("short " + std::string(100'000, 'x')), IsEmpty());
}

TEST_F(Index, FindsManyPartsInTheOrderOfAFewOnes) {
    // The rows of many parts are read in another way.
    std::vector<host::StoredPart> parts(9000);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        host::PartFacts& facts = parts[i].facts;
        facts.name = facts.number = "P" + std::to_string(10'000 + (i * 7919) % parts.size());
        facts.description = i % 9 == 0 ? "few many" : "many";
        facts.pins = static_cast<int>(i % 5);
        parts[i].stamp.directory = i + 1;
    }
    const auto index = host::OpenIndex(Root());
    index->Refresh();
    index->Put(parts);
    const std::vector<std::string> many = Numbers(*index, {"many", {}});
    ASSERT_EQ(many.size(), parts.size());
    EXPECT_TRUE(std::is_sorted(many.begin(), many.end()));
    EXPECT_EQ(Numbers(*index, {"many", {ParseCondition("pins=3")}}).size(), parts.size() / 5);
    EXPECT_EQ(Numbers(*index, {"many few", {}}).size(), parts.size() / 9);
    EXPECT_EQ(Numbers(*index, {"P1 many", {}, host::SortBy::Number, true}).front(), "P18999");
    EXPECT_EQ(Numbers(*index, {"p12345", {}}).front(), "P12345");
}

TEST_F(Index, PartsThatAreAddedAreThereAfterTheCommitAndNotBefore) {
    std::vector<host::StoredPart> parts(2);
    parts[0].facts.name = parts[0].facts.number = "ONE";
    parts[1].facts.name = parts[1].facts.number = "TWO";
    const auto index = host::OpenIndex(Root()), other = host::OpenIndex(Root());
    index->Add({parts[0]});
    index->Add({parts[1]});
    EXPECT_EQ(other->Size(), 0u);
    index->Commit();
    EXPECT_EQ(other->Size(), 2u);
    index->Commit();
    EXPECT_EQ(other->Size(), 2u);
    index->Add({});
    index->Add({parts[1]});  // the index has this very part
    index->Commit();
    EXPECT_EQ(other->Size(), 2u);
}

TEST_F(Index, PartsThatWereAddedWithoutACommitAreForgotten) {
    std::vector<host::StoredPart> parts(1);
    parts[0].facts.name = parts[0].facts.number = "ONE";
    { host::OpenIndex(Root())->Add(parts); }
    EXPECT_EQ(host::OpenIndex(Root())->Size(), 0u);
}

TEST_F(Index, ConditionsChooseByFields) {
    Store({"A", "(NUMBEROFPINS 8) (MANUFACTURER \"Maker One\") (PACKAGETYPE SO8)"});
    Store({"B", "(NUMBEROFPINS 14) (MANUFACTURER Other) (PRODUCTFAMILY Logic)"});
    Store({"C", "(NUMBEROFPINS 8) (MANUFACTURER \"maker two\") (PARTDESC \"100%\")"});
    EXPECT_THAT(Find("", {"pins=8"}), ElementsAre("A", "C"));
    EXPECT_THAT(Find("", {"pins>8"}), ElementsAre("B"));
    EXPECT_THAT(Find("", {"pins>=8", "pins!=14"}), ElementsAre("A", "C"));
    EXPECT_THAT(Find("", {"pins<9", "manufacturer=MAKER*"}), ElementsAre("A", "C"));
    EXPECT_THAT(Find("", {"manufacturer=maker one"}), ElementsAre("A"));
    EXPECT_THAT(Find("", {"manufacturer!=maker*"}), ElementsAre("B"));
    EXPECT_THAT(Find("", {"family=logic"}), ElementsAre("B"));
    EXPECT_THAT(Find("", {"package-type=so8"}), ElementsAre("A"));
    EXPECT_THAT(Find("", {"description=100%"}), ElementsAre("C"));
    EXPECT_THAT(Find("", {"description=*0%"}), ElementsAre("C"));
    EXPECT_THAT(Find("", {"errors=0", "number=A"}), ElementsAre("A")) << "the reports are made";
    EXPECT_THAT(Find("", {"manufacturer=' OR 1=1 --"}), IsEmpty());
}

TEST_F(Index, ConditionsThatAreNoneAreSaidSo) {
    for (const char* text : {"", "pins", "=8", "colour=red", "pins=", "pins=x", "pins=8x", "manufacturer<B",
                             "pins=99999999999999999999", "pins!8"})
        EXPECT_THROW(ParseCondition(text), host::QueryError) << text;
    EXPECT_EQ(ParseCondition("number=a=b").value, "a=b");
    EXPECT_THAT(host::ConditionFields(), HasSubstr("number, manufacturer"));
}

TEST_F(Index, SortsByColumns) {
    Store({"A", "(NUMBEROFPINS 3) (MANUFACTURER Z)"});
    Store({"B", "(NUMBEROFPINS 1) (MANUFACTURER Y)"});
    Store({"C", "(NUMBEROFPINS 2) (MANUFACTURER X)"});
    const auto index = Open();
    EXPECT_THAT(Numbers(*index, {"", {}, host::SortBy::Pins}), ElementsAre("B", "C", "A"));
    EXPECT_THAT(Numbers(*index, {"", {}, host::SortBy::Pins, true}), ElementsAre("A", "C", "B"));
    EXPECT_THAT(Numbers(*index, {"", {}, host::SortBy::Manufacturer}), ElementsAre("C", "B", "A"));
    for (const auto sortBy : {host::SortBy::Description, host::SortBy::PackageType, host::SortBy::Size,
                              host::SortBy::Stored, host::SortBy::Number})
        EXPECT_EQ(Numbers(*index, {"", {}, sortBy}).size(), 3u);
}

TEST_F(Index, HoldsWhatAPartIs) {
    const auto path = test::ProjectFolder("examples") / "op-amp.veka";
    host::Store(host::ReadPart(veka::FromPath(path)), directory / "lib", host::Existing::Keep);
    const auto index = Open();
    ASSERT_EQ(index->Size(), 1u);
    const host::ListedPart part = *index->Part(index->Find({"", {}}).at(0));
    EXPECT_EQ(part.facts.number, "OPA-2000-D");
    EXPECT_EQ(part.facts.fileName, "op-amp.veka");
    EXPECT_EQ(part.facts.pins, 8);
    EXPECT_THAT(part.facts.packages, ElementsAre("SO8"));
    EXPECT_THAT(part.facts.footprints, ElementsAre("SO8N"));
    EXPECT_THAT(part.facts.symbols, ElementsAre("OPAMP"));
    EXPECT_EQ(part.facts.size, std::filesystem::file_size(path));
    EXPECT_EQ(part.facts.hash, host::ContentHash(test::ReadFile(path)));
    EXPECT_GT(part.stored, 1'500'000'000);
    EXPECT_FALSE(part.findings) << "nobody has asked for the report";
    EXPECT_FALSE(index->Part(999));
}

TEST_F(Index, NoticesWhatOtherProgramsDoToTheLibrary) {
    for (const char* number : {"A", "B", "C"}) Store({number});
    EXPECT_THAT(Find(""), ElementsAre("A", "B", "C"));
    std::filesystem::remove_all(Root() / "A");
    Store({"B", "(PARTDESC other)"});
    Store({"D"});
    EXPECT_THAT(Find(""), ElementsAre("B", "C", "D"));
    EXPECT_THAT(Find("other"), ElementsAre("B"));
    host::PartLibrary(Root()).Undo("B");
    EXPECT_THAT(Find("other"), IsEmpty());
}

TEST_F(Index, IsMadeAgainWhereItWasDeleted) {
    Store({"A"});
    EXPECT_THAT(Find(""), ElementsAre("A"));
    ASSERT_TRUE(std::filesystem::exists(File()));
    std::filesystem::remove_all(Root() / ".veka-index");
    EXPECT_THAT(Find(""), ElementsAre("A"));
}

TEST_F(Index, ThatIsDamagedIsMadeAgainWithASentence) {
    for (int i = 0; i < 40; ++i) Store({"A" + std::to_string(i)});
    Open();
    const std::string whole = test::ReadFile(File());
    ASSERT_GT(whole.size(), 40'000u);
    for (const std::string& damaged : {std::string("no database at all, but a text"), whole.substr(0, 5000),
                                       whole.substr(0, 4096) + std::string(whole.size() - 4096, 'x')}) {
        std::filesystem::remove_all(Root() / ".veka-index");
        std::filesystem::create_directory(Root() / ".veka-index");
        std::ofstream(File(), std::ios::binary) << damaged;
        const auto index = host::OpenIndex(Root());
        index->Refresh();
        EXPECT_EQ(Numbers(*index, {"", {}}).size(), 40u);
        EXPECT_THAT(index->Remarks(), ElementsAre(HasSubstr("is made again")));
        EXPECT_EQ(Find("A7").size(), 1u) << "the next time all is well";
    }
}

TEST_F(Index, OfANewerVersionIsLeftAlone) {
    Store({"A"});
    Open();
    std::string bytes = test::ReadFile(File());
    bytes[63] = 99;  // the version, in the header of the file
    std::ofstream(File(), std::ios::binary) << bytes;
    const auto index = Open();
    EXPECT_THAT(index->Remarks(),
                ElementsAre("the index of the library is made in memory: its file was made by "
                            "a newer version of this program"));
    EXPECT_THAT(Numbers(*index, {"", {}}), ElementsAre("A"));
    EXPECT_EQ(test::ReadFile(File()), bytes);
}

TEST_F(Index, OfAnotherProgramOrAnOlderVersionIsMadeAgain) {
    Store({"A"});
    Open();
    std::string bytes = test::ReadFile(File());
    bytes[71] = 0;  // the mark of the application
    std::ofstream(File(), std::ios::binary) << bytes;
    const auto index = Open();
    EXPECT_THAT(index->Remarks(), ElementsAre(HasSubstr("and is made again")));
    EXPECT_THAT(Numbers(*index, {"", {}}), ElementsAre("A"));
}

TEST_F(Index, InALibraryThatCannotBeWrittenIsInMemory) {
    Store({"A"});
    const auto rights = std::filesystem::perms(0555);
    std::filesystem::permissions(directory.Path(), rights);
    std::filesystem::permissions(Root(), rights);
    const int code = test::InChild([&] {
        if (!test::BecomeNobody()) return test::kNotPossibleHere;
        const auto index = Open();
        const auto remarks = index->Remarks();
        if (remarks.size() != 1 || remarks[0].find("in memory: cannot write") == std::string::npos) return 1;
        return Numbers(*index, {"", {}}).size() == 1 ? 0 : 2;
    });
    for (const auto& path : {directory.Path(), Root()})
        std::filesystem::permissions(path, std::filesystem::perms(0755));
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
}

TEST_F(Index, FollowsNoLinkInTheLibrary) {
    Store({"A"});
    const auto outside = directory.Path() / "outside";
    std::filesystem::create_directory(outside);
    std::ofstream(outside / "b.veka") << PartText({"B"});
    std::error_code error;
    std::filesystem::create_directory_symlink(outside, Root() / "B", error);
    if (error) GTEST_SKIP() << "This user cannot make links.";
    std::filesystem::create_directory(Root() / "C");
    std::filesystem::create_symlink(outside / "b.veka", Root() / "C/c.veka");
    std::filesystem::remove_all(Root() / ".veka-index");
    std::filesystem::create_directory_symlink(outside, Root() / ".veka-index");
    const auto index = Open();
    EXPECT_THAT(Numbers(*index, {"", {}}), ElementsAre("A"));
    EXPECT_THAT(index->Remarks(), ElementsAre(HasSubstr("in memory: cannot open the directory")));
    EXPECT_THAT(test::Names(outside), ElementsAre("b.veka"));
    EXPECT_THAT(index->Verify(), UnorderedElementsAre(HasSubstr("B\" is no directory of a part"),
                                                      HasSubstr("C\" has no file that is the part's")));
}

TEST_F(Index, VerifyTellsWhatDoesNotHold) {
    for (const char* number : {"A", "B", "C", "D"}) Store({number, "(PARTDESC text)"});
    const auto index = Open();
    EXPECT_THAT(index->Verify(), IsEmpty());
    EXPECT_TRUE(index->Part(index->Find({"A", {}}).at(0))->findings) << "the reports are made";
    // A byte that a disk has lost: the date stays.
    const auto file = Root() / "A/part.veka";
    const auto time = std::filesystem::last_write_time(file);
    std::fstream(file, std::ios::in | std::ios::out | std::ios::binary).seekp(39).put('#');
    std::filesystem::last_write_time(file, time);
    std::ofstream(Root() / "B/part.veka") << PartText({"OTHER"});
    std::ofstream(Root() / "C/part.veka") << "(VEK)";
    std::filesystem::remove(Root() / "D/part.veka");
    const auto sentences = Open()->Verify();
    EXPECT_THAT(sentences, testing::Contains(
                               "the content of \"A\" is not what was stored, and its date has not changed"));
    EXPECT_THAT(sentences, testing::Contains(HasSubstr("B\" holds the part \"OTHER\"")));
    EXPECT_THAT(sentences, testing::Contains(HasSubstr("holds no part with a part number")));
    EXPECT_THAT(sentences, testing::Contains(HasSubstr("D\" has no file that is the part's")));
    EXPECT_EQ(sentences.size(), 4u);
}

TEST_F(Index, TakesTheStoredPartsOfABatchOver) {
    host::Batch batch;
    batch.library = (directory / "lib").GetString();
    const auto index = host::OpenIndex(Root());
    batch.index = [&](std::vector<host::StoredPart> parts) { index->Put(parts); };
    for (int i = 0; i < 30; ++i)
        batch.files.push_back(
            directory.Write("p" + std::to_string(i) + ".veka", PartText({"P" + std::to_string(i)}))
                .GetString());
    host::ImportBatch(batch);
    std::size_t read = 0;
    index->Refresh([&](std::size_t, std::size_t all) {
        read += all;
        return true;
    });
    EXPECT_EQ(read, 0u) << "no part had to be read again";
    EXPECT_EQ(index->Size(), 30u);
    host::ImportBatch(batch);
    EXPECT_EQ(index->Size(), 30u);
}

TEST_F(Index, ThatIsInMemoryTakesNoPartsOver) {
    Store({"A"});
    Open();
    std::string bytes = test::ReadFile(File());
    bytes[63] = 99;  // the version, in the header of the file
    std::ofstream(File(), std::ios::binary) << bytes;
    EXPECT_THAT(
        [&] { host::OpenIndex(Root())->Put({}); },
        testing::ThrowsMessage<host::IndexError>("its file was made by a newer version of this program"));
}

TEST_F(Index, AMissingLibraryIsAnError) {
    EXPECT_THROW(host::OpenIndex(directory.Path() / "missing"), host::StoreError);
}

/// Stores parts and brings the index up to date, over and over.
void IndexForever(const std::filesystem::path& directory) {
    for (int round = 0;; ++round) {
        const auto index = host::OpenIndex(directory / "lib", 1);
        for (const char* number : {"A", "B", "C"})
            host::PartLibrary(directory / "lib")
                .Store(number, "part.veka",
                       {PartText({number, "(NUMBEROFPINS " + std::to_string(round % 9 + 1) + ")"}), 0666},
                       host::Existing::Replace);
        index->Refresh();
    }
}

TEST_F(Index, KilledAtAnyInstantItIsRightTheNextTime) {
    if (!test::kExchanges)
        GTEST_SKIP() << "A child process does only one thing here, which another test does.";
    for (const char* number : {"A", "B", "C"}) Store({number});
    const char* const kills = std::getenv("VEKA_KILLS");
    for (int round = 0; round < (kills ? std::atoi(kills) : 30); ++round) {
        test::KillAfter(std::chrono::microseconds(1000 + round * 1303 % 40'000), directory.Path(),
                        IndexForever);
        const auto index = Open();
        ASSERT_THAT(index->Remarks(), IsEmpty()) << "a kill damages nothing";
        ASSERT_THAT(Numbers(*index, {"", {}}), ElementsAre("A", "B", "C"));
        ASSERT_THAT(index->Verify(), IsEmpty());
    }
}

TEST_F(Index, TwoProgramsUseOneIndex) {
    for (const char* number : {"A", "B", "C"}) Store({number});
    const test::ChildBeside other([&] { IndexForever(directory.Path()); });
    if (!other.Runs()) GTEST_SKIP() << "There is no second process here.";
    for (int round = 0; round < 20; ++round) {
        const auto index = Open();
        EXPECT_THAT(index->Remarks(), IsEmpty());
        EXPECT_THAT(Numbers(*index, {"", {}}), ElementsAre("A", "B", "C"));
    }
}

}  // namespace
