#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "leveltree/CECadClsLvl.h"
#include "leveltree/Pages.h"
#include "platform/CArray.h"
#include "platform/Owned.h"

namespace veka {
class LineSource;
}

/// Root of one level tree, which is read from a file.
class VEKA_API CECadCls {
    std::unique_ptr<veka::Pages, veka::Pages::EndUser> m_pages;  // of the levels; made by the first read

public:
    CECadCls();
    virtual ~CECadCls();
    CECadCls(const CECadCls&) = delete;
    CECadCls& operator=(const CECadCls&) = delete;

    /// Reads the file `m_strFilePath` and adds its top-level levels to `m_pRootLevels`.
    ///
    /// Returns 0 if each level was closed, and -1 if levels were unbalanced or too deep; the levels that were
    /// closed until then are in the tree. If a level was too deep, a message box is shown. A file that cannot
    /// be opened gives 0 and no levels. The low byte of the argument counts as the byte before the first
    /// line (Q28). Raises `CFileException` if the file cannot be read to its end.
    int ReadLevelTree(int nReserved);
    /// As `ReadLevelTree`, but reads any text.
    int ReadLevelTreeFrom(veka::LineSource& source, int nReserved);
    /// As `ReadLevelTree`, but passes each top-level level to `take` when the level is closed, and does not
    /// keep it: the level ends when `take` returns, and must not be changed. So a file of many parts needs
    /// the memory of one part.
    int ReadTopLevels(int nReserved, const std::function<void(const CECadClsLvl*)>& take);

    int m_bStopAtDepthZero = 0;  ///< not 0: stop after a line, not the first, that ends outside all levels
    Owned<CECadClsLvlArray> m_pRootLevels;  ///< closed top-level levels in file order
    CString m_strFilePath;
    int m_nLineCount = 0;  ///< lines read from the file so far
    CArrayN m_aReserved32;
    CArray<std::uint64_t> m_aReserved64;

private:
    int Read(veka::LineSource& source, veka::Pages& pages, int nReserved,
             const std::function<void(CECadClsLvl*)>& take);
};
