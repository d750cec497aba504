// Precompiled for every target without widgets.
#pragma once
#include <QtCore>
#include <QtGui>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
