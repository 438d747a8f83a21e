#include "bench/tripcount/XProxy.h"

#include <X11/Xproto.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <system_error>

namespace lmtest {

using namespace std::chrono_literals;

// The protocol's packets, as far as their lengths go. Each function answers 0 when it needs more bytes to tell.

template <class Number> static size_t numberAt(const std::string& bytes, size_t offset)
{
    Number number = 0;
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

static size_t padded(size_t length) { return (length + 3) / 4 * 4; }

static size_t clientSetupLength(const std::string& bytes)
{
    if (bytes.size() < sz_xConnClientPrefix)
        return 0;
    return sz_xConnClientPrefix + padded(numberAt<CARD16>(bytes, 6)) + padded(numberAt<CARD16>(bytes, 8));
}

static size_t requestLength(const std::string& bytes)
{
    if (bytes.size() < 8)
        return bytes.size() >= 4 ? 4 * numberAt<CARD16>(bytes, 2) : 0;
    const size_t units = numberAt<CARD16>(bytes, 2);
    return 4 * (units ? units : numberAt<CARD32>(bytes, 4));   // 0: a big request
}

static size_t serverSetupLength(const std::string& bytes)
{
    return bytes.size() < sz_xConnSetupPrefix ? 0 : sz_xConnSetupPrefix + 4 * numberAt<CARD16>(bytes, 6);
}

static size_t answerLength(const std::string& bytes)
{
    if (bytes.size() < sz_xReply)
        return 0;
    const bool mayBeLong = bytes[0] == X_Reply || (bytes[0] & 0x7F) == GenericEvent;
    return sz_xReply + (mayBeLong ? 4 * numberAt<CARD32>(bytes, 4) : 0);
}

/// Takes the complete packets off the front.
static void cut(std::string& bytes, const std::function<size_t()>& length, const std::function<void()>& packet)
{
    for (size_t n = length(); n != 0 && n <= bytes.size(); n = length()) {
        packet();
        bytes.erase(0, n);
    }
}

static sockaddr_un addressOf(const std::string& path)
{
    sockaddr_un address = {.sun_family = AF_UNIX};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

static lm::FileDescriptor newSocket()
{
    lm::FileDescriptor made(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!made)
        throw std::system_error(errno, std::generic_category(), "socket");
    return made;
}

static const std::string socketFolder = "/tmp/.X11-unix/X";

XProxy::XProxy(const std::string& realDisplay, std::chrono::milliseconds delay)
    : _realSocket(socketFolder + std::to_string(std::stoi(realDisplay.substr(realDisplay.find(':') + 1)))),
      _delay(delay)
{
    listenOnFreeDisplay();
}

XProxy::~XProxy() { unlink(_socket.c_str()); }

void XProxy::listenOnFreeDisplay()
{
    for (int number = 700; number < 2000; ++number) {
        const std::string path = socketFolder + std::to_string(number);
        const sockaddr_un address = addressOf(path);
        lm::FileDescriptor listener = newSocket();
        if (bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            continue;   // somebody listens there, or left the name behind
        if (listen(listener.get(), 8) != 0)
            break;
        _listener = std::move(listener);
        _socket = path;
        _displayName = std::string(":").append(std::to_string(number));
        return;
    }
    throw std::system_error(errno, std::generic_category(), "no free display number for the proxy");
}

void XProxy::accept()
{
    auto connection = std::make_unique<Connection>();
    connection->client = lm::FileDescriptor(::accept4(_listener.get(), nullptr, nullptr, SOCK_CLOEXEC));
    connection->server = newSocket();
    const sockaddr_un address = addressOf(_realSocket);
    if (connect(connection->server.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::system_error(errno, std::generic_category(), _realSocket);
    ++_traffic.connections;
    _connections.push_back(std::move(connection));
}

void XProxy::countRequests(Connection& connection, const std::string& bytes)
{
    _traffic.last = Clock::now();
    connection.fromClient += bytes;
    const auto length = [&] {
        return connection.clientIsSetUp ? requestLength(connection.fromClient) : clientSetupLength(connection.fromClient);
    };
    cut(connection.fromClient, length, [&] {
        if (!std::exchange(connection.clientIsSetUp, true))
            return;
        ++connection.sequence;
        ++_traffic.requests;
    });
}

void XProxy::countReplies(Connection& connection, const std::string& bytes)
{
    connection.fromServer += bytes;
    const auto length = [&] {
        return connection.serverIsSetUp ? answerLength(connection.fromServer) : serverSetupLength(connection.fromServer);
    };
    cut(connection.fromServer, length, [&] {
        if (!std::exchange(connection.serverIsSetUp, true))
            return;
        const std::string& packet = connection.fromServer;
        if (packet[0] == X_Reply && numberAt<CARD16>(packet, 2) == (connection.sequence & 0xFFFF))
            ++_traffic.trips;
        _traffic.painted |= packet[0] == Expose;
    });
}

void XProxy::read(Connection& connection, const lm::FileDescriptor& from, std::deque<Chunk>& queue)
{
    char buffer[65536];
    const ssize_t length = ::read(from.get(), buffer, sizeof buffer);
    if (length <= 0)
        connection.open = false;
    else
        queue.push_back({Clock::now() + _delay, std::string(buffer, static_cast<size_t>(length))});
}

static bool writeAll(const lm::FileDescriptor& to, const std::string& bytes)
{
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t n = send(to.get(), bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (n <= 0)
            return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

void XProxy::deliver(Connection& connection)
{
    const auto now = Clock::now();
    for (; !connection.toServer.empty() && connection.toServer.front().due <= now; connection.toServer.pop_front())
        connection.open &= writeAll(connection.server, connection.toServer.front().bytes);
    for (; !connection.toClient.empty() && connection.toClient.front().due <= now; connection.toClient.pop_front()) {
        countReplies(connection, connection.toClient.front().bytes);   // at this moment, or it did not wait
        connection.open &= writeAll(connection.client, connection.toClient.front().bytes);
    }
}

std::chrono::milliseconds XProxy::untilNextDelivery(std::chrono::milliseconds patience) const
{
    auto next = Clock::now() + patience;
    for (const auto& connection : _connections)
        for (const auto* queue : {&connection->toServer, &connection->toClient})
            if (!queue->empty())
                next = std::min(next, queue->front().due);
    return std::max(0ms, std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()));
}

void XProxy::forward(std::chrono::milliseconds patience)
{
    std::vector<pollfd> ready = {{_listener.get(), POLLIN, 0}};
    for (const auto& connection : _connections)
        for (const auto* end : {&connection->client, &connection->server})
            ready.push_back({end->get(), POLLIN, 0});
    poll(ready.data(), ready.size(), static_cast<int>(untilNextDelivery(patience).count()));

    for (size_t i = 0; i < _connections.size(); ++i) {
        Connection& connection = *_connections[i];
        if (ready[2 * i + 1].revents) {
            read(connection, connection.client, connection.toServer);
            if (connection.open)
                countRequests(connection, connection.toServer.back().bytes);
        }
        if (ready[2 * i + 2].revents)
            read(connection, connection.server, connection.toClient);
        deliver(connection);
    }
    std::erase_if(_connections, [](const auto& connection) { return !connection->open; });
    if (ready[0].revents)
        accept();
}

}   // namespace lmtest
