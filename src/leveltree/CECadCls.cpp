#include "leveltree/CECadCls.h"

#include "files/CStdioFile.h"
#include "leveltree/LevelReader.h"
#include "leveltree/Messages.h"
#include "window/AfxMessageBox.h"

namespace {

/// Copies the number of lines out of a reader, also after an exception.
struct LineCountCopy {
    int& lineCount;
    const veka::LevelReader& reader;
    ~LineCountCopy() { lineCount = reader.LineCount(); }
};

}  // namespace

CECadCls::CECadCls() = default;
CECadCls::~CECadCls() = default;

int CECadCls::ReadLevelTree(int nReserved) {
    m_nLineCount = 0;
    CStdioFile file;
    return file.Open(m_strFilePath) ? ReadLevelTreeFrom(file, nReserved) : 0;
}

int CECadCls::ReadLevelTreeFrom(veka::LineSource& source, int nReserved) {
    if (!m_pages) m_pages.reset(new veka::Pages);
    return Read(source, *m_pages, nReserved,
                [this](CECadClsLvl* level) { m_pRootLevels->Add(std::unique_ptr<CECadClsLvl>(level)); });
}

int CECadCls::ReadTopLevels(int nReserved, const std::function<void(const CECadClsLvl*)>& take) {
    m_nLineCount = 0;
    CStdioFile file;
    if (!file.Open(m_strFilePath)) return 0;
    veka::Pages pages;
    return Read(file, pages, nReserved, [&](CECadClsLvl* level) {
        take(level);
        pages.Reset();
    });
}

int CECadCls::Read(veka::LineSource& source, veka::Pages& pages, int nReserved,
                   const std::function<void(CECadClsLvl*)>& take) {
    veka::LevelReader reader(pages, [&](CECadClsLvl* level, int) { take(level); },
                             {static_cast<char>(nReserved), m_bStopAtDepthZero != 0});
    const auto read = [&] {
        const LineCountCopy copy{m_nLineCount, reader};
        return reader.Read(source);
    }();
    if (read.stopped) {
        CString text;
        text.Format(veka::messages::kUnexpectedBrace, read.depth, m_nLineCount);
        AfxMessageBox(text);
    }
    return read.structure == veka::LevelsRead::Structure::Balanced ? 0 : -1;
}
