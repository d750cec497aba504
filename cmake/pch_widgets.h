// Precompiled for every target with widgets.
#pragma once
#include <QtCore>
#include <QtGui>
#include <QtWidgets>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
