#pragma once

/// Runs the event loop and the worker pools until none has anything left to do.
void settle();
