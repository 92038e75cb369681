#pragma once

#include <QCoroTask>

/// Starts work that nobody awaits. An exception that the work lets out is a programming error and ends the
/// program, rather than vanishing with the task.
void launch(QCoro::Task<> task);
