#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <span>

#include "leveltree/Pages.h"
#include "platform/Assert.h"
#include "platform/CExPtrArray.h"
#include "platform/CString.h"
#include "platform/CStringArray.h"

class CECadClsLvl;

namespace veka {
class LevelChildren;
}

/// Owning array of levels.
class VEKA_API CECadClsLvlArray : public CExPtrArray<CECadClsLvl*, CECadClsLvl*> {
public:
    CECadClsLvlArray();
    ~CECadClsLvlArray() override;

private:
    friend class veka::LevelChildren;
    friend class CECadClsLvl;
    /// Takes over levels, but not the memory of the pointers to them.
    CECadClsLvlArray(CECadClsLvl** levels, std::int32_t count) noexcept { Borrow(levels, count); }
};

namespace veka {

/// The children of a level, used as a pointer to their array that is never null.
class LevelChildren {
public:
    LevelChildren() = default;
    LevelChildren(const LevelChildren&) = delete;
    LevelChildren& operator=(const LevelChildren&) = delete;

    CECadClsLvlArray* get() const noexcept { return &m_children; }
    CECadClsLvlArray* operator->() const noexcept { return &m_children; }
    CECadClsLvlArray& operator*() const noexcept { return m_children; }
    operator CECadClsLvlArray*() const noexcept { return &m_children; }

private:
    friend class ::CECadClsLvl;
    LevelChildren(CECadClsLvl** levels, std::int32_t count) noexcept : m_children(levels, count) {}

    // Without the attribute the array would be four bytes larger.
    [[no_unique_address]] mutable CECadClsLvlArray m_children;
};

}  // namespace veka

/// One parenthesised level of a file: its first token is the name, all others are values.
///
/// A level that was read is in pages, with its values and the pointers to its children. A value or a child
/// that is added to it makes its list move to memory of its own. The pages live as long as any level in them
/// that has not been deleted.
class VEKA_API CECadClsLvl {
public:
    CECadClsLvl();
    virtual ~CECadClsLvl();
    CECadClsLvl(const CECadClsLvl&) = delete;
    CECadClsLvl& operator=(const CECadClsLvl&) = delete;
    /// Ends a level. Its pages end with the last one of their levels.
    static void operator delete(CECadClsLvl* level, std::destroying_delete_t);

    /// Makes a level in pages. Its strings are its name and its values, in this order. The bytes of the
    /// strings are copied to the pages, and so are the pointers to the children. A text that is borrowed must
    /// be in the pages. `kReadable` strings after the last one must be readable, and `kReadable` pointers
    /// after the last child. The level is not yet a user of its pages.
    static CECadClsLvl* Make(veka::Pages& pages, int depth, std::span<CString> strings,
                             std::span<CECadClsLvl* const> children) {
        VEKA_ASSERT(!strings.empty());
        // Four pointers and four strings at once, even if there are fewer: most levels have no more, and to
        // count them would cost more.
        CECadClsLvl** levels = nullptr;
        if (!children.empty()) {
            levels = pages.Allocate<CECadClsLvl*>(children.size());
            CopyFours(levels, children.data(), children.size());
        }
        constexpr std::size_t namePlace = sizeof(CECadClsLvl) - sizeof(CString);
        auto* memory = pages.Allocate<std::byte>(namePlace + strings.size_bytes());
        auto* copies = reinterpret_cast<CString*>(memory + namePlace);
        auto* level = new (memory)
            CECadClsLvl(pages, depth, {copies + 1, strings.size() - 1}, {levels, children.size()});
        CopyFours(copies, strings.data(), strings.size());
        return level;
    }
    static constexpr std::size_t kReadable = 3;
    static_assert(veka::Pages::kWritable >= kReadable * sizeof(CString));

    [[no_unique_address]] veka::LevelChildren m_pChildren;  ///< closed child levels in file order
    int m_nDepth = 0;        ///< 1 for a top-level level, one more per nesting step
    CStringArray m_aValues;  ///< values in file order

private:
    veka::Pages* m_pages = nullptr;  // where the level is; null for a level that was made by itself

public:
    CString m_strName;  // the last member: in pages the values follow it

private:
    CECadClsLvl(veka::Pages& pages, int depth, std::span<CString> values,
                std::span<CECadClsLvl*> children) noexcept
        : m_pChildren(children.data(), static_cast<std::int32_t>(children.size())),
          m_nDepth(depth),
          m_aValues(CStringArray::InMemoryOf(values.data(), static_cast<std::uint32_t>(values.size()))),
          m_pages(&pages) {}
    bool OwnsMemory() const noexcept {
        return m_strName.OwnsMemory() || m_aValues.OwnsMemory() || m_pChildren->OwnsMemory();
    }
    std::size_t EndInPages() noexcept;
    /// Copies the bytes of elements, at least one, and of up to `kReadable` more.
    template <class T>
    static void CopyFours(T* target, const T* source, std::size_t count) noexcept {
        constexpr std::size_t atOnce = kReadable + 1;
        std::memcpy(static_cast<void*>(target), static_cast<const void*>(source), atOnce * sizeof(T));
        for (std::size_t i = atOnce; i < count; i += atOnce)
            std::memcpy(static_cast<void*>(target + i), static_cast<const void*>(source + i),
                        atOnce * sizeof(T));
    }
};
