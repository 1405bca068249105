#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <span>

#include "leveltree/Pages.h"
#include "platform/CExPtrArray.h"
#include "platform/CString.h"
#include "platform/CStringArray.h"

class CECadClsLvl;

/// Owning array of levels.
class VEKA_API CECadClsLvlArray : public CExPtrArray<CECadClsLvl*, CECadClsLvl*> {
public:
    CECadClsLvlArray();
    ~CECadClsLvlArray() override;

    /// Shows levels that live in pages, in an array that is empty.
    using CArray::Show;
};

namespace veka {

/// The children of a level, used as a pointer to their array that is never null.
class VEKA_API LevelChildren {
public:
    LevelChildren();
    ~LevelChildren();
    LevelChildren(const LevelChildren&) = delete;
    LevelChildren& operator=(const LevelChildren&) = delete;

    CECadClsLvlArray* get() const noexcept { return m_children; }
    CECadClsLvlArray* operator->() const noexcept { return m_children; }
    CECadClsLvlArray& operator*() const noexcept { return *m_children; }
    operator CECadClsLvlArray*() const noexcept { return m_children; }

private:
    friend class ::CECadClsLvl;
    explicit LevelChildren(CECadClsLvlArray* children) noexcept : m_children(children) {}

    CECadClsLvlArray* m_children;
};

}  // namespace veka

/// One parenthesised level of a file: its first token is the name, all others are values.
///
/// The levels of a tree that was read live in the tree's pages, and die with it. They cannot grow: to add a
/// value or a child raises `CInvalidArgException`, and deleting one does nothing. A level made by itself has
/// no such limits.
class VEKA_API CECadClsLvl {
public:
    CECadClsLvl();
    virtual ~CECadClsLvl();
    CECadClsLvl(const CECadClsLvl&) = delete;
    CECadClsLvl& operator=(const CECadClsLvl&) = delete;
    /// Ends a level that has memory of its own.
    static void operator delete(CECadClsLvl* level, std::destroying_delete_t);

    /// Makes a level in pages, of its name with its values behind it and of its children; they are copied
    /// there as they stand. Borrowed text lives as long as the pages. `kReadable` strings more can be read.
    static CECadClsLvl* Make(veka::Pages& pages, int depth, std::span<CString> strings,
                             std::span<CECadClsLvl* const> children) {
        CECadClsLvlArray* array = children.empty() ? ms_noChildren : MakeSomeChildren(pages, children);
        constexpr std::size_t namePlace = sizeof(CECadClsLvl) - sizeof(CString);
        auto* memory = pages.Allocate<std::byte>(namePlace + strings.size_bytes());
        auto* copies = reinterpret_cast<CString*>(memory + namePlace);
        auto* level = new (memory) CECadClsLvl(depth, {copies + 1, strings.size() - 1}, array);
        // Four strings at once, if need be with what stands behind them: most levels have fewer, and to ask
        // would cost more.
        constexpr std::size_t atOnce = kReadable + 1;
        std::size_t i = 0;
        do {
            std::memcpy(static_cast<void*>(copies + i), static_cast<const void*>(strings.data() + i),
                        atOnce * sizeof(CString));
            i += atOnce;
        } while (i < strings.size());
        return level;
    }
    static constexpr std::size_t kReadable = 3;
    static_assert(veka::Pages::kWritable >= kReadable * sizeof(CString));

    veka::LevelChildren m_pChildren;  ///< closed child levels in file order
    CStringArray m_aValues;           ///< values in file order
    int m_nDepth = 0;                 ///< 1 for a top-level level, one more per nesting step

private:
    bool m_inPages = false;

public:
    CString m_strName;  // the last, so that the values can stand behind it

private:
    CECadClsLvl(int depth, std::span<CString> values, CECadClsLvlArray* children) noexcept
        : m_pChildren(children),
          m_aValues(CStringArray::View(values.data(), static_cast<std::uint32_t>(values.size()))),
          m_nDepth(depth),
          m_inPages(true) {}
    static CECadClsLvlArray* MakeSomeChildren(veka::Pages& pages, std::span<CECadClsLvl* const> children);

    static CECadClsLvlArray* const ms_noChildren;  // of every level in pages that has none
};
