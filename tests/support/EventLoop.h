#pragma once

/// Runs the event loop and the worker pool until neither has anything left to do.
void settle();
