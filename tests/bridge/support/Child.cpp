#include "support/Child.h"

#include "Store/Files.h"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

Child::Child(const std::filesystem::path& data, const std::vector<std::string>& options) : data_(data)
{
    std::vector<std::string> arguments{BRIDGE_PROGRAM, "--data", data.string(), "--listen", "127.0.0.1:0"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    int ends[2];
    if (::pipe(ends) != 0)
        return;
    process_ = ::fork();
    if (process_ == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::dup2(ends[1], STDERR_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        // What this process ignores would stay ignored; the program has to see to it by itself.
        std::signal(SIGPIPE, SIG_DFL);
        ::execv(pointers.front(), pointers.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    const bridge::Descriptor reading(ends[0]);
    const std::string sign = "Listening on https://127.0.0.1:";
    char byte = 0;
    while (::read(reading.number(), &byte, 1) == 1) {
        output_ += byte;
        const auto found = output_.find(sign);
        if (byte == '\n' && found != std::string::npos) {
            port_ = std::stoi(output_.substr(found + sign.size()));
            return;
        }
    }
}

Child::~Child()
{
    end(SIGKILL);
}

void Child::beginMeasurement() const
{
    // See proc(5): this sets the peak to what is held now.
    std::ofstream("/proc/" + std::to_string(process_) + "/clear_refs") << '5';
}

std::size_t Child::peakMemory() const
{
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stoul(line.substr(6)) << 10;
    }
    return 0;
}

void Child::limitFiles(unsigned long long bytes)
{
    const rlimit limit{bytes, RLIM_INFINITY};
    ::prlimit(process_, RLIMIT_FSIZE, &limit, nullptr);
}

int Child::end(int signal)
{
    if (process_ <= 0)
        return 0;
    ::kill(process_, signal);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}
