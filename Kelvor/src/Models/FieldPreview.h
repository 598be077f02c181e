#pragma once

#include <QString>

class SoField;

/// The value of a field in one line of at most some 100 characters, for lists. Nodes, engines, paths, images
/// and fields of many values are summed up ("256 x 256, 3 components", "3 values: 1 2 3, 4 5 6, …"), long
/// texts are cut with "…", line breaks show as "⏎". Its cost does not grow with the size of the value.
/// Evaluates a connected field.
QString fieldPreview(SoField& field);
