#include "leveltree/CECadClsLvl.h"

CECadClsLvlArray::CECadClsLvlArray() = default;
CECadClsLvlArray::~CECadClsLvlArray() = default;

CECadClsLvl::CECadClsLvl() = default;
CECadClsLvl::~CECadClsLvl() = default;
