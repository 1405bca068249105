#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <span>
#include <utility>

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

    /// Makes a level in pages, of strings and levels that are copied there as they stand. Borrowed text lives
    /// as long as the pages.
    static CECadClsLvl* Make(veka::Pages& pages, int depth, CString&& name, std::span<CString> values,
                             std::span<CECadClsLvl* const> children) {
        // The values stand directly behind the level.
        auto* memory = pages.Take<std::byte>(sizeof(CECadClsLvl) + values.size_bytes());
        auto* run = reinterpret_cast<CString*>(memory + sizeof(CECadClsLvl));
        for (std::size_t i = 0; i < values.size(); ++i)
            std::memcpy(static_cast<void*>(run + i), static_cast<const void*>(&values[i]), sizeof(CString));
        return new (memory)
            CECadClsLvl(depth, std::move(name), {run, values.size()}, MakeChildren(pages, children));
    }

    veka::LevelChildren m_pChildren;  ///< closed child levels in file order
    CStringArray m_aValues;           ///< values in file order
    CString m_strName;
    int m_nDepth = 0;  ///< 1 for a top-level level, one more per nesting step

private:
    CECadClsLvl(int depth, CString&& name, std::span<CString> values, CECadClsLvlArray* children) noexcept
        : m_pChildren(children),
          m_aValues(CStringArray::View(values.data(), static_cast<std::uint32_t>(values.size()))),
          m_strName(std::move(name)),
          m_nDepth(depth),
          m_inPages(true) {}
    static CECadClsLvlArray* MakeChildren(veka::Pages& pages, std::span<CECadClsLvl* const> children) {
        return children.empty() ? ms_noChildren : MakeSomeChildren(pages, children);
    }
    static CECadClsLvlArray* MakeSomeChildren(veka::Pages& pages, std::span<CECadClsLvl* const> children);

    static CECadClsLvlArray* const ms_noChildren;  // of every level in pages that has none

    bool m_inPages = false;
};
