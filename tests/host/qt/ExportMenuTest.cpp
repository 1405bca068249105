#include "host/qt/ExportMenu.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "host/Failure.h"
#include "support/Files.h"
#include "support/QtScript.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class QtExportMenu : public test::QtTest {
protected:
    QtExportMenu() {
        window.show();
        menu = std::make_unique<host::ExportMenu>(
            host::ExportMenu::Host{[this] { return part ? &*part : nullptr; }, [this] { return library; },
                                   [](const CString&) { return host::Reading(); },
                                   [](const CString&) -> host::Waiting { return nullptr; },
                                   [this](const CString& sentence) { state = sentence.View(); },
                                   [this](const CString& file, const std::function<void()>& deed) {
                                       try {
                                           deed();
                                       } catch (...) {
                                           state = host::CurrentFailure(std::string(file.View())).sentence;
                                       }
                                   }},
            &window);
    }
    /// Shows a part with a footprint whose pin has a padstack or none.
    void Show(const std::string& padstack) {
        part = host::ReadPart(directory.Write("part.veka", PartOf("A", padstack)));
    }
    static std::string PartOf(const std::string& number, const std::string& padstack) {
        return "(VEK (PARTGENERAL (MPN " + number +
               ")) (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (SNAME IN) (TYPE INPUT)))))"
               "(PADS (PAD (PADNAME P) (FILLRECT (W 2) (H 1)))) (PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP "
               "(CON P)))) (FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F" +
               number + ") (FPINS (FPIN 1 1 (LIBPADSTACK " + padstack + ") (PT 0 0)))))";
    }
    void Trigger(const char* name) { test::QtScript::Child<QAction>(*menu, name)->trigger(); }
    /// Names a file in the picker.
    void Name(const CString& path) {
        script.Then([path](QWidget& dialog) {
            test::QtScript::Child<QLineEdit>(dialog, "fileNameEdit")->setText(path.GetString());
            auto* buttons = test::QtScript::Child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(buttons->button(QDialogButtonBox::Save), Qt::LeftButton);
        });
    }
    /// Keeps the list of remarks, and closes it.
    void ExpectRemarks() {
        script.Then([this](QWidget& dialog) {
            remarks = test::QtScript::Child<QPlainTextEdit>(dialog, "remarks")->toPlainText().toStdString();
            dialog.close();
        });
    }
    std::string Content(const char* path) { return test::ReadFile(directory.Path() / path); }
    bool Exists(const char* path) { return std::filesystem::exists(directory.Path() / path); }

    test::TemporaryDirectory directory;
    QWidget window;
    std::optional<host::ImportedPart> part;
    CString library;
    std::string state, remarks;
    std::unique_ptr<host::ExportMenu> menu;
};

TEST_F(QtExportMenu, WritesThePartToALibraryOfKiCad) {
    Show("S");
    Name(directory / "parts.kicad_sym");
    ExpectRemarks();
    Trigger("exportKiCad");
    EXPECT_TRUE(Exists("parts.kicad_sym"));
    EXPECT_TRUE(Exists("parts.pretty/FA.kicad_mod"));
    EXPECT_THAT(state, StartsWith("Exported to " + std::string((directory / "parts.kicad_sym").View())));
    EXPECT_THAT(remarks, HasSubstr("symbol \"A\""));
}

TEST_F(QtExportMenu, WhatKiCadCannotHoldIsListed) {
    Show("NONE");
    Name(directory / "parts");  // the ending is added
    ExpectRemarks();
    Trigger("exportKiCad");
    EXPECT_TRUE(Exists("parts.kicad_sym"));
    EXPECT_THAT(remarks, HasSubstr("the pin \"1\" has no pad"));
    EXPECT_THAT(state, HasSubstr("remark"));
}

TEST_F(QtExportMenu, AddsToALibraryWithoutAQuestion) {
    for (const char* number : {"A", "B"}) {
        part = host::ReadPart(directory.Write("part.veka", PartOf(number, "S")));
        Name(directory / "parts.kicad_sym");
        ExpectRemarks();
        Trigger("exportKiCad");
    }
    EXPECT_TRUE(Exists("parts.pretty/FA.kicad_mod"));
    EXPECT_TRUE(Exists("parts.pretty/FB.kicad_mod"));
}

TEST_F(QtExportMenu, WritesAllPartsOfALibrary) {
    std::filesystem::create_directory(directory.Path() / "lib");
    library = directory / "lib";
    for (const char* number : {"A", "B"}) {
        const host::ImportedPart stored = host::ReadPart(directory.Write("part.veka", PartOf(number, "S")));
        host::Store(stored, library, host::Existing::Keep);
    }
    std::filesystem::create_directory(directory.Path() / "lib" / "C");
    directory.Write("lib/C/C.veka", "");
    Name(directory / "parts.kicad_sym");
    ExpectRemarks();
    Trigger("exportLibraryKiCad");
    EXPECT_TRUE(Exists("parts.pretty/FA.kicad_mod"));
    EXPECT_TRUE(Exists("parts.pretty/FB.kicad_mod"));
    EXPECT_THAT(state, HasSubstr("Exported 2 parts to "));
    EXPECT_THAT(state, HasSubstr(", not 1 part"));
    EXPECT_THAT(remarks, HasSubstr("C.veka"));
}

TEST_F(QtExportMenu, WritesAPictureAndJson) {
    Show("S");
    Name(directory / "part.svg");
    Trigger("exportPicture");
    EXPECT_EQ(state, "Exported to " + std::string((directory / "part.svg").View()));
    Name(directory / "part.png");
    Trigger("exportPicture");
    Name(directory / "part.json");
    Trigger("exportJson");
    EXPECT_THAT(Content("part.svg"), HasSubstr("<svg"));
    EXPECT_THAT(Content("part.png"), StartsWith("\x89PNG"));
    EXPECT_THAT(Content("part.json"), HasSubstr("\"MPN\":\"A\""));
}

TEST_F(QtExportMenu, NeverReplacesThePartsOwnFile) {
    part = host::ReadPart(directory.Write("part.json", PartOf("A", "S")));
    Name(directory / "part.json");
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::Yes); });
    Trigger("exportJson");
    EXPECT_THAT(state, HasSubstr("is the file that is imported"));
    EXPECT_EQ(Content("part.json"), PartOf("A", "S"));
}

TEST_F(QtExportMenu, AFileThatCannotBeWrittenIsSaid) {
    Show("S");
    Name(directory / "none/part.json");
    Trigger("exportJson");
    EXPECT_THAT(state, HasSubstr("cannot open the directory"));
    std::filesystem::create_directory(directory.Path() / "parts.pretty");
    directory.Write("parts.kicad_sym", "no library");
    Name(directory / "parts.kicad_sym");
    Trigger("exportKiCad");
    EXPECT_THAT(state, HasSubstr("was left as it is"));
    EXPECT_EQ(Content("parts.kicad_sym"), "no library");
}

TEST_F(QtExportMenu, CancelWritesNothing) {
    Show("S");
    script.Then([](QWidget& picker) { picker.close(); });
    Trigger("exportKiCad");
    EXPECT_EQ(state, "");
    library = "";  // the user gave no library
    Trigger("exportLibraryKiCad");
    EXPECT_EQ(state, "");
}

TEST_F(QtExportMenu, SolidsAreOfferedWhereTheProgramHasThem) {
    EXPECT_EQ(test::QtScript::Child<QAction>(*menu, "exportStep")->isVisible(), host::CanWriteSolids());
}

TEST_F(QtExportMenu, ActionsOfAPartNeedOne) {
    emit menu->aboutToShow();
    EXPECT_FALSE(test::QtScript::Child<QAction>(*menu, "exportKiCad")->isEnabled());
    EXPECT_TRUE(test::QtScript::Child<QAction>(*menu, "exportLibraryKiCad")->isEnabled());
    Trigger("exportJson");
    EXPECT_EQ(state, "");
    Show("S");
    emit menu->aboutToShow();
    EXPECT_TRUE(test::QtScript::Child<QAction>(*menu, "exportKiCad")->isEnabled());
}

}  // namespace
