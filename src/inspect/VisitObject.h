#pragma once

#include <typeinfo>

#include "model/objects/Objects.h"

namespace host {

/// Calls `visit` with an object as its own class; a plain base object, or one of a host's own class, as the
/// base.
template <class Visitor>
void VisitObject(const CVEKA_3DObject& object, Visitor&& visit) {
#define VEKA_VISIT(Level, Method, Class) \
    if (typeid(object) == typeid(Class)) return visit(static_cast<const Class&>(object));
    VEKA_OBJECT_KINDS(VEKA_VISIT)
    VEKA_VISIT("", , CVEKA_3DOJ_METAKMASKSHAPE)
#undef VEKA_VISIT
    visit(object);
}

/// The name of an object's class behind its "CVEKA_3DOJ_".
inline const char* KindName(const CVEKA_3DObject& object) {
#define VEKA_NAME(Level, Method, Class) \
    if (typeid(object) == typeid(Class)) return &#Class[sizeof("CVEKA_3DOJ_") - 1];
    VEKA_OBJECT_KINDS(VEKA_NAME)
    VEKA_NAME("", , CVEKA_3DOJ_METAKMASKSHAPE)
#undef VEKA_NAME
    return "3DObject";
}

}  // namespace host
