#pragma once

#include <functional>

class QWidget;

/// Runs `refresh` when F5 or Ctrl+R is pressed anywhere in the screen's window while the screen is shown.
void onRefreshKeys(QWidget* screen, std::function<void()> refresh);
