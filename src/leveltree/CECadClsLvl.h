#pragma once

#include "platform/CExPtrArray.h"
#include "platform/CString.h"
#include "platform/CStringArray.h"
#include "platform/Owned.h"

class CECadClsLvl;

/// Owning array of levels.
class VEKA_API CECadClsLvlArray : public CExPtrArray<CECadClsLvl*, CECadClsLvl*> {
public:
    CECadClsLvlArray();
    ~CECadClsLvlArray() override;
};

/// One parenthesised level of a file: its first token is the name, all others are values.
class VEKA_API CECadClsLvl {
public:
    CECadClsLvl();
    virtual ~CECadClsLvl();
    CECadClsLvl(const CECadClsLvl&) = delete;
    CECadClsLvl& operator=(const CECadClsLvl&) = delete;

    Owned<CECadClsLvlArray> m_pChildren;  ///< closed child levels in file order
    CStringArray m_aValues;               ///< values in file order
    CString m_strName;
    int m_nDepth = 0;  ///< 1 for a top-level level, one more per nesting step
};
