#pragma once

#include <cstdint>
#include <functional>

#include "leveltree/CECadClsLvl.h"
#include "leveltree/Pages.h"
#include "platform/CArray.h"
#include "platform/Owned.h"

/// Root of one level tree, and the reader that makes it from a file.
///
/// The rules are those of the format to the byte; what looks accidental among them is required.
class VEKA_API CECadCls {
    veka::Pages m_pages;  // the levels, so it must outlive the root levels below

public:
    CECadCls();
    virtual ~CECadCls();
    CECadCls(const CECadCls&) = delete;
    CECadCls& operator=(const CECadCls&) = delete;

    /// Reads the file `m_strFilePath` into `m_pRootLevels`. 0 means that the file ended with balanced
    /// levels, -1 that they were unbalanced or too deep; what had closed until then is in the tree. A file
    /// that cannot be opened gives 0 and an empty tree. Shows a message box for a level that is too deep.
    /// The low byte of the argument stands for the byte before the first line.
    /// Raises `CFileException` where the file cannot be read on.
    int ReadLevelTree(int nReserved);
    /// As `ReadLevelTree`, but hands each top-level level over once it has closed, and keeps none: a level is
    /// gone when `take` returns. So a file of many parts needs the memory of one.
    int ReadTopLevels(int nReserved, const std::function<void(CECadClsLvl*)>& take);

    int m_bStopAtDepthZero = 0;  ///< nonzero: stop after the first line, past line 1, that ends outside
    Owned<CECadClsLvlArray> m_pRootLevels;  ///< closed top-level levels in file order
    CString m_strFilePath;
    int m_nLineCount = 0;  ///< lines taken from the file so far
    CArrayN m_aReserved32;
    CArray<std::uint64_t> m_aReserved64;

private:
    int Read(int nReserved, const std::function<void(CECadClsLvl*)>& take);
};
