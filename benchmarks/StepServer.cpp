#include "benchmarks/StepServer.h"

#include <boost/asio.hpp>
#include <boost/beast.hpp>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace stagehopper::benchmarks {

namespace {

namespace asio = boost::asio;
namespace websocket = boost::beast::websocket;
using Tcp = asio::ip::tcp;
using Stream = websocket::stream<Tcp::socket>;

}  // namespace

class StepServer::Connection {
public:
    Connection() : acceptor_(context_, {asio::ip::address_v4::loopback(), 0}) {
        thread_ = std::thread([this] { serve(); });
    }
    ~Connection() {
        {
            const std::lock_guard lock(mutex_);
            closed_ = true;
        }
        wanted_.notify_all();
        // Wakes an accept that waits.
        boost::system::error_code ignored;
        Tcp::socket(context_).connect(acceptor_.local_endpoint(), ignored);
        thread_.join();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] std::string port() const {
        return std::to_string(acceptor_.local_endpoint().port());
    }
    void sendStep() {
        {
            const std::lock_guard lock(mutex_);
            ++stepsWanted_;
        }
        wanted_.notify_all();
    }

private:
    void serve() {
        while (true) {
            boost::system::error_code error;
            Tcp::socket socket(context_);
            acceptor_.accept(socket, error);
            if (error || isClosed()) return;
            socket.set_option(Tcp::no_delay(true), error);
            Stream stream(std::move(socket));
            stream.accept(error);
            while (!error && waitForStep()) {
                const auto frame = R"({"type":"slide_nav","direction":"next","seq":)" +
                                   std::to_string(++seq_) + "}";
                stream.write(asio::buffer(frame), error);
            }
            if (isClosed()) return;
        }
    }

    bool isClosed() {
        const std::lock_guard lock(mutex_);
        return closed_;
    }

    bool waitForStep() {
        std::unique_lock lock(mutex_);
        wanted_.wait(lock, [this] { return closed_ || stepsWanted_ > 0; });
        if (closed_) return false;
        --stepsWanted_;
        return true;
    }

    asio::io_context context_;
    Tcp::acceptor acceptor_;
    std::mutex mutex_;
    std::condition_variable wanted_;
    int stepsWanted_ = 0;
    bool closed_ = false;
    int seq_ = 0;
    std::thread thread_;
};

StepServer::StepServer() : connection_(std::make_unique<Connection>()) {}
StepServer::~StepServer() = default;

std::string StepServer::port() const {
    return connection_->port();
}

void StepServer::sendStep() {
    connection_->sendStep();
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
