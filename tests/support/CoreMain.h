#pragma once

/// The main function of a test program without widgets: its files are private, as the client's are, and there
/// is an event loop to run.
int runCoreTests(int argc, char** argv);
