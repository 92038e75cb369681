#pragma once

#include "Question.h"

#include <QProperty>

#include <functional>
#include <optional>

class QWidget;

/// Shows the question that the property holds as a modal dialog over the screen's window, for as long as the
/// property holds it.
/// \param answered  told the answer: true for the step that is asked about
void presentQuestions(
    QWidget* screen, QProperty<std::optional<Question>>& question, std::function<void(bool)> answered);
