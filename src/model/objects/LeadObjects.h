#pragma once

#include "model/objects/CVEKA_3DOJ_RotMirror.h"

// The metal part of a pin, by its form. The letters are those of the format; the same letter of two forms is
// not the same size, and nothing is computed from them.

/// A solder ball.
class VEKA_API CVEKA_3DOJ_BALL : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_BALL, CVEKA_3DOJ_RotMirror, 16)
    VEKA_REAL(H)
};

/// A straight bar.
class VEKA_API CVEKA_3DOJ_BAR : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_BAR, CVEKA_3DOJ_RotMirror, 17)
    VEKA_REAL(Z)
    VEKA_REAL(H)
    VEKA_REAL(T)
    VEKA_CLINCH_GROUP
};

/// A butt lead.
class VEKA_API CVEKA_3DOJ_BUTT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_BUTT, CVEKA_3DOJ_RotMirror, 18)
    VEKA_REAL(H)
    VEKA_REAL(T)
    VEKA_REAL(W)
    VEKA_REAL(Z)
    VEKA_REAL(BL)
};

/// A C bend.
class VEKA_API CVEKA_3DOJ_CBEND : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_CBEND, CVEKA_3DOJ_RotMirror, 19)
    VEKA_REAL(H)
    VEKA_REAL(L)
    VEKA_REAL(W)
    VEKA_REAL(Z)
};

/// A through-hole lead.
class VEKA_API CVEKA_3DOJ_DIP : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_DIP, CVEKA_3DOJ_RotMirror, 20)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(T)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(Z)
};

/// A through-hole lead, form A.
class VEKA_API CVEKA_3DOJ_DIPA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_DIPA, CVEKA_3DOJ_RotMirror, 21)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(T1)
    VEKA_REAL(T2)
    VEKA_REAL(Z)
    VEKA_CLINCH_GROUP
};

/// A through-hole lead, form B.
class VEKA_API CVEKA_3DOJ_DIPB : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_DIPB, CVEKA_3DOJ_RotMirror, 22)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(S)
    VEKA_REAL(T)
    VEKA_REAL(Z)
};

/// A flat lead.
class VEKA_API CVEKA_3DOJ_FLAT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_FLAT, CVEKA_3DOJ_RotMirror, 23)
    VEKA_REAL(L)
    VEKA_REAL(W)
    VEKA_REAL(T)
};

/// A gull wing.
class VEKA_API CVEKA_3DOJ_GULLWING : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_GULLWING, CVEKA_3DOJ_RotMirror, 24)
    VEKA_REAL(H)
    VEKA_REAL(B)
    VEKA_REAL(W)
    VEKA_REAL(M)
    VEKA_REAL(BL)
    VEKA_REAL(T)
};

/// A gull wing, form A.
class VEKA_API CVEKA_3DOJ_GULLWINGA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_GULLWINGA, CVEKA_3DOJ_RotMirror, 25)
    VEKA_REAL(H)
    VEKA_REAL(B)
    VEKA_REAL(W)
    VEKA_REAL(BL)
    VEKA_REAL(T)
};

/// A J bend.
class VEKA_API CVEKA_3DOJ_JBEND : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_JBEND, CVEKA_3DOJ_RotMirror, 26)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(D)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(BL)
    VEKA_REAL(T)
};

/// An inverted J bend.
class VEKA_API CVEKA_3DOJ_JINVERTED : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_JINVERTED, CVEKA_3DOJ_RotMirror, 27)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(D)
    VEKA_REAL(T)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(BL)
};

/// A reversed butt lead.
class VEKA_API CVEKA_3DOJ_REVERSEBUTT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_REVERSEBUTT, CVEKA_3DOJ_RotMirror, 28)
    VEKA_REAL(H)
    VEKA_REAL(T)
    VEKA_REAL(W)
    VEKA_REAL(B)
};

/// A round bar.
class VEKA_API CVEKA_3DOJ_ROUNDBAR : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBAR, CVEKA_3DOJ_RotMirror, 29)
    VEKA_REAL(Z)
    VEKA_REAL(BL)
    VEKA_REAL(H)
    VEKA_REAL(T)
    VEKA_CLINCH_GROUP
};

/// A round bar, form A.
class VEKA_API CVEKA_3DOJ_ROUNDBARA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBARA, CVEKA_3DOJ_RotMirror, 30)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(Z)
    VEKA_REAL(L)
    VEKA_REAL(T)
    VEKA_CLINCH_GROUP
};

/// A round bar, form B.
class VEKA_API CVEKA_3DOJ_ROUNDBARB : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBARB, CVEKA_3DOJ_RotMirror, 31)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(L1)
    VEKA_REAL(L2)
    VEKA_REAL(L3)
    VEKA_REAL(T)
    VEKA_REAL(Z)
    VEKA_CLINCH_GROUP
};

/// A round bar, form C.
class VEKA_API CVEKA_3DOJ_ROUNDBARC : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBARC, CVEKA_3DOJ_RotMirror, 56)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(H)
    VEKA_REAL(Z)
    VEKA_REAL(L)
    VEKA_REAL(T)
    VEKA_CLINCH_GROUP
};

/// A kinked through-hole lead.
class VEKA_API CVEKA_3DOJ_KINKDIP : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_KINKDIP, CVEKA_3DOJ_RotMirror, 57)
    VEKA_REAL(H)
    VEKA_REAL(D)
    VEKA_REAL(Z)
    VEKA_REAL(T)
    VEKA_CLINCH_GROUP
};

/// A kinked through-hole lead, form A.
class VEKA_API CVEKA_3DOJ_KINKDIPA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_KINKDIPA, CVEKA_3DOJ_RotMirror, 58)
    VEKA_REAL(H)
    VEKA_REAL(H1)
    VEKA_REAL(D)
    VEKA_REAL(Z)
    VEKA_REAL(T)
    VEKA_CLINCH_GROUP
};

/// A round through-hole lead.
class VEKA_API CVEKA_3DOJ_ROUNDDIP : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDDIP, CVEKA_3DOJ_RotMirror, 32)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(T)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(BL)
    VEKA_REAL(Z)
};

/// A round through-hole lead, form A.
class VEKA_API CVEKA_3DOJ_ROUNDDIPA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDDIPA, CVEKA_3DOJ_RotMirror, 59)
    VEKA_REAL(H)
    VEKA_REAL(H1)
    VEKA_REAL(H2)
    VEKA_REAL(H3)
    VEKA_REAL(L1)
    VEKA_REAL(L2)
    VEKA_REAL(T)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(W3)
    VEKA_REAL(Z)
};

/// A wrap-around end. In an array of objects it becomes a flat lead.
class VEKA_API CVEKA_3DOJ_WRAPAROUND : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_WRAPAROUND, CVEKA_3DOJ_RotMirror, 33)
    VEKA_REAL(H)
    VEKA_REAL(L)
    VEKA_REAL(W)
    VEKA_REAL(T)
};

/// A wire.
class VEKA_API CVEKA_3DOJ_WIRE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_WIRE, CVEKA_3DOJ_RotMirror, 34)
    VEKA_REAL(T)
    VEKA_REAL(L)
};
