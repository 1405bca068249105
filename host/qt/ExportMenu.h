#pragma once

#include <QMenu>
#include <functional>

#include "host/ImportedPart.h"
#include "host/Solids.h"

namespace host {

/// The menu that writes the part that is shown, or a whole library, as files of other programs: libraries of
/// KiCad, solids, a picture, JSON. What a file cannot hold is shown as a list.
class ExportMenu : public QMenu {
public:
    /// What the menu needs from its window.
    struct Host {
        std::function<const ImportedPart*()> part;  ///< the part that is shown; null without one
        std::function<CString()> library;           ///< the library, or an empty text if the user gives none
        std::function<Reading(const CString& file)> reading;
        std::function<Waiting(const CString& library)> waiting;
        std::function<void(const CString& state)> show;
        /// Does something; a failure is shown. `file` is the one concerned.
        std::function<void(const CString& file, const std::function<void()>& deed)> guarded;
    };
    ExportMenu(Host host, QWidget* parent);

private:
    QAction* Add(const char* text, const char* name, std::function<void()> deed, bool needsPart);
    void EnableActions();
    /// Asks for a file, and writes the part that is shown with it. `write` returns what the file lacks.
    void Write(const char* title, const char* filter, const char* suffix,
               const std::function<std::vector<std::string>(const ImportedPart& part,
                                                            const std::string& path)>& write);
    void WriteSolids(const char* title, const char* filter, const char* suffix, SolidFile::Format format);
    void WritePicture();
    void WriteJson();
    void WriteToKiCad();
    void WriteLibraryToKiCad();
    /// The file that the user names; empty if the user cancels.
    std::string AskForFile(const char* title, const char* filter, const char* suffix, const CString& proposal,
                           bool addsTo);
    void ShowResult(const CString& sentence, const std::vector<std::string>& remarks);

    const Host m_host;
    std::vector<QAction*> m_ofPart;  // actions that need a part
};

}  // namespace host
