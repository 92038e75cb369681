#pragma once

#include "support/Api.h"

#include <filesystem>
#include <string>
#include <vector>

/// The bridge's program as a process of its own.
class Child
{
public:
    /// Starts it and waits until it listens, or ends.
    Child(const std::filesystem::path& data, const std::vector<std::string>& options);
    Child(const Child&) = delete;
    ~Child();

    bool isListening() const { return port_ != 0; }
    int port() const { return port_; }
    Api api() const { return {port_, data_}; }

    /// What it printed before it listened, or ended.
    const std::string& output() const { return output_; }

    /// The most memory that it had since the begin of a measurement, in bytes. Its start takes much, for the
    /// hash of a password.
    void beginMeasurement() const;
    std::size_t peakMemory() const;

    /// From now on no file may grow beyond so many bytes, as if the disk were full.
    void limitFiles(unsigned long long bytes);

    /// Sends a signal and waits for the end; the exit status, or minus the signal that ended it.
    int end(int signal);

private:
    std::filesystem::path data_;
    std::string output_;
    int process_ = -1;
    int port_ = 0;
};
