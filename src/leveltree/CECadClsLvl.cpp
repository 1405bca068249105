#include "leveltree/CECadClsLvl.h"

#if defined(__GNUC__) && !defined(_WIN32)
static_assert(sizeof(CECadClsLvl) == 80, "each byte more costs time: a file has many levels");
#endif

CECadClsLvlArray::CECadClsLvlArray() = default;
CECadClsLvlArray::~CECadClsLvlArray() = default;

CECadClsLvl::CECadClsLvl() = default;
CECadClsLvl::~CECadClsLvl() = default;

void CECadClsLvl::operator delete(CECadClsLvl* level, std::destroying_delete_t) {
    if (veka::Pages* pages = level->m_pages) {
        pages->EndUsers(level->EndInPages());
    } else {
        level->~CECadClsLvl();
        ::operator delete(level);
    }
}

/// Ends a level in pages with all levels below it. Returns how many of them were in the same pages.
std::size_t CECadClsLvl::EndInPages() noexcept {
    std::size_t ended = 1;
    for (CECadClsLvl* child : *m_pChildren) {
        if (!child || child->m_pages != m_pages)
            delete child;
        else if (child->m_pChildren->IsEmpty() && !child->OwnsMemory())
            ++ended;  // the most frequent case: nothing is to be freed
        else
            ended += child->EndInPages();
    }
    if (OwnsMemory()) {
        m_pChildren->RemoveAll();
        CECadClsLvl::~CECadClsLvl();
    }
    return ended;
}
