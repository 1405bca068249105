#pragma once

#include <QDialog>
#include <filesystem>
#include <optional>

#include "platform/CString.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace veka {

/// Lets the user choose a file or a directory, whatever bytes its name is made of: Qt's own file dialog
/// leaves out every name that is not UTF-8.
class PathPicker : public QDialog {
public:
    /// What is to be chosen.
    struct Wanted {
        QString title;
        std::optional<CString>
            extension;  ///< of the files shown, without its point; none: a directory is chosen
    };
    static Wanted File(const QString& description, const CString& extension);
    static Wanted Directory(const QString& title) { return {title, std::nullopt}; }

    /// Opens at a path, at the nearest directory above it that exists, or else at the working directory.
    PathPicker(Wanted wanted, const CString& current, QWidget* parent);

    /// The path that the user chose; empty before.
    const CString& Chosen() const { return m_chosen; }

private:
    bool WantsFile() const { return m_wanted.extension.has_value(); }
    void LayOut();
    /// Shows a directory; one that cannot be read is shown as empty.
    void Enter(const std::filesystem::path& directory);
    void Fill();
    bool IsShown(const std::filesystem::directory_entry& entry) const;
    std::filesystem::path Named() const;
    void EnterDirectoryField();
    void ChooseName();
    void MakeDirectory();
    void Choose(const std::filesystem::path& path);
    void ShowWarning(const QString& sentence);

    Wanted m_wanted;
    std::filesystem::path m_directory;
    CString m_chosen;
    QLineEdit* m_directoryField;
    QListWidget* m_entries;
    QLineEdit* m_nameField;
    QComboBox* m_types;
};

/// Runs a picker and returns the chosen path; empty if the user cancels.
CString PickPath(PathPicker::Wanted wanted, const CString& current, QWidget* parent);

}  // namespace veka
