#pragma once

/// What this program does as another process that wants to be the one instance: it writes "won" or "handed
/// over" to its output, and as long as it is the instance what it is asked for.
/// \param address  of the bus
int runInstanceChild(int argc, char** argv, const char* address);

/// The name that is fought for.
constexpr const char* instanceId = "app.example.Notary-Desk";
