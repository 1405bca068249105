#pragma once

#include "model/objects/CVEKA_3DOJ_RotMirror.h"

// The metal part of a pin, by its form. The letters are those of the format; the same letter of two forms is
// not the same size, and nothing is computed from them.

/// A solder ball.
class VEKA_API CVEKA_3DOJ_BALL : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_BALL, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
};

/// A straight bar.
class VEKA_API CVEKA_3DOJ_BAR : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_BAR, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_CLINCH_GROUP
};

/// A butt lead.
class VEKA_API CVEKA_3DOJ_BUTT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_BUTT, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(BL, "dimension BL of the form")
};

/// A C bend.
class VEKA_API CVEKA_3DOJ_CBEND : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_CBEND, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(L, "dimension L of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(Z, "dimension Z of the form")
};

/// A through-hole lead.
class VEKA_API CVEKA_3DOJ_DIP : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_DIP, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(W1, "dimension W1 of the form")
    VEKA_REAL(W2, "dimension W2 of the form")
    VEKA_REAL(Z, "dimension Z of the form")
};

/// A through-hole lead, form A.
class VEKA_API CVEKA_3DOJ_DIPA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_DIPA, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(T1, "dimension T1 of the form")
    VEKA_REAL(T2, "dimension T2 of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_CLINCH_GROUP
};

/// A through-hole lead, form B.
class VEKA_API CVEKA_3DOJ_DIPB : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_DIPB, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(W1, "dimension W1 of the form")
    VEKA_REAL(W2, "dimension W2 of the form")
    VEKA_REAL(S, "dimension S of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(Z, "dimension Z of the form")
};

/// A flat lead.
class VEKA_API CVEKA_3DOJ_FLAT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_FLAT, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(L, "dimension L of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(T, "dimension T of the form")
};

/// A gull wing.
class VEKA_API CVEKA_3DOJ_GULLWING : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_GULLWING, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(B, "dimension B of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(M, "dimension M of the form")
    VEKA_REAL(BL, "dimension BL of the form")
    VEKA_REAL(T, "dimension T of the form")
};

/// A gull wing, form A.
class VEKA_API CVEKA_3DOJ_GULLWINGA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_GULLWINGA, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(B, "dimension B of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(BL, "dimension BL of the form")
    VEKA_REAL(T, "dimension T of the form")
};

/// A J bend.
class VEKA_API CVEKA_3DOJ_JBEND : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_JBEND, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(D, "dimension D of the form")
    VEKA_REAL(W1, "dimension W1 of the form")
    VEKA_REAL(W2, "dimension W2 of the form")
    VEKA_REAL(BL, "dimension BL of the form")
    VEKA_REAL(T, "dimension T of the form")
};

/// An inverted J bend.
class VEKA_API CVEKA_3DOJ_JINVERTED : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_JINVERTED, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(D, "dimension D of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(W1, "dimension W1 of the form")
    VEKA_REAL(W2, "dimension W2 of the form")
    VEKA_REAL(BL, "dimension BL of the form")
};

/// A reversed butt lead.
class VEKA_API CVEKA_3DOJ_REVERSEBUTT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_REVERSEBUTT, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(B, "dimension B of the form")
};

/// A round bar.
class VEKA_API CVEKA_3DOJ_ROUNDBAR : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBAR, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(BL, "dimension BL of the form")
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_CLINCH_GROUP
};

/// A round bar, form A.
class VEKA_API CVEKA_3DOJ_ROUNDBARA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBARA, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(L, "dimension L of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_CLINCH_GROUP
};

/// A round bar, form B.
class VEKA_API CVEKA_3DOJ_ROUNDBARB : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBARB, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(L1, "dimension L1 of the form")
    VEKA_REAL(L2, "dimension L2 of the form")
    VEKA_REAL(L3, "dimension L3 of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_CLINCH_GROUP
};

/// A round bar, form C.
class VEKA_API CVEKA_3DOJ_ROUNDBARC : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDBARC, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(L, "dimension L of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_CLINCH_GROUP
};

/// A kinked through-hole lead.
class VEKA_API CVEKA_3DOJ_KINKDIP : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_KINKDIP, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(D, "dimension D of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_CLINCH_GROUP
};

/// A kinked through-hole lead, form A.
class VEKA_API CVEKA_3DOJ_KINKDIPA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_KINKDIPA, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(D, "dimension D of the form")
    VEKA_REAL(Z, "dimension Z of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_CLINCH_GROUP
};

/// A round through-hole lead.
class VEKA_API CVEKA_3DOJ_ROUNDDIP : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDDIP, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(W1, "dimension W1 of the form")
    VEKA_REAL(W2, "dimension W2 of the form")
    VEKA_REAL(BL, "dimension BL of the form")
    VEKA_REAL(Z, "dimension Z of the form")
};

/// A round through-hole lead, form A.
class VEKA_API CVEKA_3DOJ_ROUNDDIPA : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDDIPA, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(H1, "dimension H1 of the form")
    VEKA_REAL(H2, "dimension H2 of the form")
    VEKA_REAL(H3, "dimension H3 of the form")
    VEKA_REAL(L1, "dimension L1 of the form")
    VEKA_REAL(L2, "dimension L2 of the form")
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(W1, "dimension W1 of the form")
    VEKA_REAL(W2, "dimension W2 of the form")
    VEKA_REAL(W3, "dimension W3 of the form")
    VEKA_REAL(Z, "dimension Z of the form")
};

/// A wrap-around end. In an array of objects it becomes a flat lead.
class VEKA_API CVEKA_3DOJ_WRAPAROUND : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_WRAPAROUND, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(H, "dimension H of the form")
    VEKA_REAL(L, "dimension L of the form")
    VEKA_REAL(W, "dimension W of the form")
    VEKA_REAL(T, "dimension T of the form")
};

/// A wire.
class VEKA_API CVEKA_3DOJ_WIRE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_WIRE, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(T, "dimension T of the form")
    VEKA_REAL(L, "dimension L of the form")
};
