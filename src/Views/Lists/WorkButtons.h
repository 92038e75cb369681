#pragma once

#include "Screen/EditPaneModel.h"

class Button;

/// Lets a button show its own change on its way, and wait while another one is.
void showWork(Button* button, EditPaneModel& model, EditPaneModel::Work work);
