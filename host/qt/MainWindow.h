#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "host/ImportDialog.h"
#include "host/ReadAhead.h"
#include "report/RecordPlaces.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QSettings;
class QTabWidget;

namespace host {

class FindBar;
class LibraryView;
class FindingsView;
class ImportQueue;
class PartPictures;
class PinView;
class QueueView;
class RecordTree;
class SolidView;

/// The application's window. It opens parts to look at them, imports them by the dialog or as files dropped
/// on it, and shows the last one: its identity at the top, and below it the records as a tree, the pins as a
/// table and beside them the pictures of the part.
class MainWindow : public QMainWindow {
public:
    /// `settings` keep the last files and libraries, and outlive the window.
    explicit MainWindow(QSettings& settings);
    ~MainWindow() override;

    /// What the dialog opens with next; an empty text leaves what was there the last time.
    void Suggest(const CString& file, const CString& library);
    /// What an import may cost from now on.
    void SetLimits(const Limits& limits) { m_limits = limits; }
    /// Opens the dialog; imports, shows and stores the part that the user chooses.
    void Import();
    /// Reads files, shows the last one and stores nothing.
    void Open(const std::vector<CString>& files);
    /// Imports several files as `ImportFolders` does. A single file is only shown.
    void ImportFiles(const std::vector<CString>& files);
    /// Stores the part that is shown in the last library, or in one that the user chooses.
    void StorePart();
    /// Imports files and all part data files below directories as a batch into the last library, or into one
    /// that the user chooses. Returns after the last file; meanwhile the window works.
    void ImportFolders(const std::vector<CString>& folders);
    /// Shows the parts of the last library, or of one that the user chooses.
    void ShowLibrary();
    /// Restores the part of the last library that was replaced last.
    void Undo();

    bool HasPart() const { return m_part.has_value(); }
    /// Calls a function once the window is on the screen.
    void WhenShown(std::function<void()> call);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MakeContent();
    void MakePictures();
    void MakeReport();
    /// Shows in the title of the report how many errors and warnings it has; none for an empty sentence.
    void ShowCount(const std::string& count);
    /// Selects the record that a place of the file gave.
    void SelectAt(veka::Place place);
    /// Says once how many findings the report of a part has that is to be stored; false if the user then
    /// does not want it.
    bool MayStore();
    /// The findings of the part's report as a sentence; empty without any.
    CString FindingsSentence();
    void MakeActions();
    QMenu* MakeExportMenu();
    void RunDialog(const CString& file, const CString& library);
    CString LibraryOrAsk();
    /// Does something; a failure is shown in a message and in the window. `file` is the one concerned.
    void Guarded(const CString& file, const std::function<void()>& deed);
    /// Stores the part and shows what became of it. `ask` says first how many findings its report has; after
    /// the dialog, which has asked already, that is only told.
    void StoreIn(const CString& library, Existing existing, bool ask = true);
    void Show(ImportedPart part);
    /// Shows in the tree and in the table what was clicked in a picture.
    void Select(const void* record);
    void ShowPart(bool keep);
    void ShowState(const CString& state);
    /// Says that the part is not stored, and offers to store it.
    void ShowNotStored();
    /// Shows what became of a queue of files, and the last part.
    void EndQueue(const std::string& last, const CString& total);
    /// Asks whether a file of the queue may replace a part. `forAll` has the answers for all files, for
    /// faulty ones and for others.
    bool MayReplaceInQueue(const CheckedFile& file, std::map<bool, bool>& forAll);
    /// Adds a file to the list of files, or changes what the list says about it.
    void List(const CString& file, const CString& state);
    bool MayReplace(const ImportedPart& part);
    Waiting WaitingBox(const CString& library);
    Reading ReadingBox(const CString& file);

    void Remember(const char* key, const CString& path);
    CString Remembered(const char* key) const;
    void AddRecent(const char* key, const CString& path);
    std::vector<CString> Recent(const char* key) const;
    void FillRecent(QMenu* menu, const char* key, const std::function<void(const CString&)>& choose);

    QSettings& m_settings;
    Limits m_limits;
    std::optional<ImportedPart> m_part;
    std::function<void()> m_whenShown;
    QLabel* m_number;
    QLabel* m_identity;
    QLabel* m_pinCount;
    QLabel* m_file;
    QLabel* m_state;
    QPushButton* m_storeButton;
    QLabel* m_faults;
    QTabWidget* m_tabs;
    RecordTree* m_records;
    PinView* m_pins;
    PartPictures* m_pictures;
    FindingsView* m_findings;
    SolidView* m_solids;
    std::unique_ptr<veka::RecordPlaces> m_places;  // made when it is first needed
    bool m_toldFindings = false;
    FindBar* m_find;
    QWidget* m_filesDock;
    QWidget* m_libraryDock;
    LibraryView* m_libraryView;
    QueueView* m_files;
    ImportQueue* m_queue = nullptr;  // while files are imported
    bool m_closes = false;           // when the queue ends
    QAction* m_showAll;
    QAction* m_store;
};

}  // namespace host
