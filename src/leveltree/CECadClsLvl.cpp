#include "leveltree/CECadClsLvl.h"

#include <algorithm>

namespace {

/// A view of nothing, so that it cannot grow.
class NoChildren : public CECadClsLvlArray {
public:
    NoChildren() { Show(&m_nothing, 0); }

private:
    CECadClsLvl* m_nothing = nullptr;
};
NoChildren g_noChildren;

}  // namespace

CECadClsLvlArray* const CECadClsLvl::ms_noChildren = &g_noChildren;

CECadClsLvlArray::CECadClsLvlArray() = default;
CECadClsLvlArray::~CECadClsLvlArray() = default;

veka::LevelChildren::LevelChildren() : m_children(new CECadClsLvlArray) {}

veka::LevelChildren::~LevelChildren() {
    delete m_children;
}

CECadClsLvl::CECadClsLvl() = default;
CECadClsLvl::~CECadClsLvl() = default;

void CECadClsLvl::operator delete(CECadClsLvl* level, std::destroying_delete_t) {
    if (level->m_inPages) return;
    level->~CECadClsLvl();
    ::operator delete(level);
}

CECadClsLvlArray* CECadClsLvl::MakeSomeChildren(veka::Pages& pages, std::span<CECadClsLvl* const> children) {
    auto** levels = pages.Allocate<CECadClsLvl*>(children.size());
    std::ranges::copy(children, levels);
    auto* array = new (pages.Allocate<CECadClsLvlArray>(1)) CECadClsLvlArray;
    array->Show(levels, static_cast<INT_PTR>(children.size()));
    return array;
}
