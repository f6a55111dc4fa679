#include "benchmarks/StepServer.h"

#include <boost/asio.hpp>
#include <boost/beast.hpp>
#include <chrono>

namespace stagehopper::benchmarks {

namespace {

namespace asio = boost::asio;
namespace websocket = boost::beast::websocket;
using Tcp = asio::ip::tcp;
using Stream = websocket::stream<Tcp::socket>;

}  // namespace

void StepServer::serve(Peer& peer) {
    const auto request = peer.readRequest();
    if (!request) return;
    peer.acceptWebSocket(*request);
    {
        const std::lock_guard lock(mutex_);
        client_ = &peer;
    }
    connected_.notify_all();
    peer.readUntilGone();
    const std::lock_guard lock(mutex_);
    client_ = nullptr;
}

void StepServer::sendStep() {
    constexpr std::chrono::seconds limit{10};
    std::unique_lock lock(mutex_);
    if (!connected_.wait_for(lock, limit, [this] { return client_ != nullptr; })) return;
    client_->send(Frame{Frame::text, R"({"type":"slide_nav","direction":"next","seq":)" +
                                         std::to_string(++seq_) + "}"});
}

class BareClient::Socket {
public:
    explicit Socket(const std::string& port) : stream_(context_) {
        const Tcp::endpoint server(asio::ip::address_v4::loopback(),
                                   static_cast<unsigned short>(std::stoi(port)));
        stream_.next_layer().connect(server);
        stream_.next_layer().set_option(Tcp::no_delay(true));
        stream_.handshake("127.0.0.1:" + port, "/ws");
    }
    void readFrame() {
        buffer_.clear();
        stream_.read(buffer_);
    }

private:
    asio::io_context context_;
    Stream stream_;
    boost::beast::flat_buffer buffer_;
};

BareClient::BareClient(const std::string& port) : socket_(std::make_unique<Socket>(port)) {}
BareClient::~BareClient() = default;

void BareClient::readFrame() {
    socket_->readFrame();
}

}  // namespace stagehopper::benchmarks
