// Servers.h: private X servers and window managers for tests. None outlives the process that started it.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace lmtest {

/// An X server of our own. The process ends with status 99 and a message when none can be started.
class Server {
public:
    /// One screen "WIDTHxHEIGHTxDEPTH"; `arguments` are Xvfb's own, for example {"-cc", "3"} for the visual class of depth 8.
    explicit Server(const std::string& screen = "800x600x24", const std::vector<std::string>& arguments = {});
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    /// Only the process that started the server ends it: a forked child that leaves through exit() does not.
    ~Server();

    const std::string& displayName() const { return _displayName; }
    /// Ends the server as a crash would and waits until it is gone.
    void crash();

private:
    pid_t _owner;
    pid_t _process;
    std::string _displayName;
};

/// The server that main() started for this process: the one of the environment variable DISPLAY.
Server& server();

/// Starts mwm on the server of DISPLAY and returns when it manages windows; a second call does nothing.
void startWindowManager();

}   // namespace lmtest
