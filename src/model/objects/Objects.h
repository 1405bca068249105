#pragma once

/// All kinds of objects.

#include "model/objects/DrawnObjects.h"
#include "model/objects/LeadObjects.h"
#include "model/objects/ObjectKinds.h"
#include "model/objects/PlaneShapes.h"
#include "model/objects/SolidObjects.h"
#include "model/objects/UserDefinedObjects.h"
