// XProxy.h: an X server's double that forwards everything and counts how often its clients stopped and waited.
#pragma once

#include "support/handles.h"

#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace lmtest {

/// What went through the proxy.
struct Traffic {
    int connections = 0;
    int requests = 0;
    int trips = 0;          ///< replies to the newest request sent: the client could do nothing but wait for them
    bool painted = false;   ///< some client got an Expose event
    std::chrono::steady_clock::time_point last;   ///< the newest bytes of any client
};

/// Listens on a display number of its own and forwards each connection to the real server, `delay` later in either
/// direction. Only for servers that need no authority and speak this machine's byte order; one thread, driven by forward().
class XProxy {
public:
    using Clock = std::chrono::steady_clock;

    /// Throws std::system_error when no socket can be had.
    explicit XProxy(const std::string& realDisplay, std::chrono::milliseconds delay = {});
    XProxy(const XProxy&) = delete;
    XProxy& operator=(const XProxy&) = delete;
    ~XProxy();

    /// The name for the clients' environment variable DISPLAY.
    const std::string& displayName() const { return _displayName; }
    const Traffic& traffic() const { return _traffic; }
    /// Forwards what there is, and waits at most so long for something to come.
    void forward(std::chrono::milliseconds patience);

private:
    struct Chunk {
        Clock::time_point due;
        std::string bytes;
    };
    struct Connection {
        lm::FileDescriptor client, server;
        std::string fromClient, fromServer;   // the packet that is not complete yet
        std::deque<Chunk> toServer, toClient;
        bool clientIsSetUp = false, serverIsSetUp = false;
        unsigned sequence = 0;   // of the newest request
        bool open = true;
    };

    void listenOnFreeDisplay();
    void accept();
    void read(Connection& connection, const lm::FileDescriptor& from, std::deque<Chunk>& queue);
    void countRequests(Connection& connection, const std::string& bytes);
    void countReplies(Connection& connection, const std::string& bytes);
    void deliver(Connection& connection);
    std::chrono::milliseconds untilNextDelivery(std::chrono::milliseconds patience) const;

    std::string _realSocket, _socket, _displayName;
    std::chrono::milliseconds _delay;
    lm::FileDescriptor _listener;
    std::vector<std::unique_ptr<Connection>> _connections;
    Traffic _traffic;
};

}   // namespace lmtest
