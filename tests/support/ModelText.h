#pragma once

#include <string>
#include <vector>

#include "model/CVEKA_Manager.h"

/// Models as text, for tests that compare models.
namespace test {

/// The outline of a model, with the fields that hold nothing or without them.
std::string Outlined(const CVEKA_Manager& model, bool all = false);
/// Every field of a model.
std::string AsJson(const CVEKA_Manager& model);
/// Every field of each section of a model, the sections in the order of the root's fields.
std::vector<std::string> SectionsAsJson(const CVEKA_Manager& model);

}  // namespace test
