#include "tests/macos/recording/system/SocketConnection.h"

#include <utility>

#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

void tellSession(std::function<void()> work) {
    queues::after(0, "session", std::move(work));
}

}  // namespace

void SocketConnection::sends(std::string text) {
    arrives({Incoming::Kind::text, std::move(text)});
}

void SocketConnection::sendsBytes(std::string bytes) {
    arrives({Incoming::Kind::binary, std::move(bytes)});
}

void SocketConnection::breaks(const std::string& why) {
    if (failure_) return;
    open_ = false;
    failure_ = why;
    client_.reset();
    for (auto& receiver : std::exchange(receivers_, {})) {
        tellSession([receiver = std::move(receiver), why] {
            receiver({Incoming::Kind::failure, why});
        });
    }
    for (const auto& handler : std::exchange(waitingForPong_, {})) {
        for (int time = 0; time < failedPingCalls; ++time) {
            tellSession([handler, why] { handler(why); });
        }
    }
}

void SocketConnection::forget() {
    open_ = false;
    inbox_.clear();
    receivers_.clear();
    waitingForPong_.clear();
    client_.reset();
}

void SocketConnection::connected(int pongs) {
    if (failure_) return;
    open_ = true;
    pongs_ = pongs;
    for (auto& handler : std::exchange(waitingForPong_, {})) answerPing(std::move(handler));
}

void SocketConnection::receive(Receiver receiver) {
    if (!inbox_.empty()) {
        tellSession([receiver = std::move(receiver), incoming = std::move(inbox_.front())] {
            receiver(incoming);
        });
        inbox_.pop_front();
    } else if (failure_) {
        tellSession([receiver = std::move(receiver), why = *failure_] {
            receiver({Incoming::Kind::failure, why});
        });
    } else {
        receivers_.push_back(std::move(receiver));
    }
}

void SocketConnection::ping(PongHandler handler) {
    ++pings_;
    if (failure_) {
        tellSession([handler = std::move(handler), why = failure_] { handler(why); });
        return;
    }
    if (open_) {
        answerPing(std::move(handler));
    } else {
        waitingForPong_.push_back(std::move(handler));
    }
}

void SocketConnection::answerPing(PongHandler handler) {
    for (int pong = 0; pong < pongs_; ++pong) {
        tellSession([handler] { handler(std::nullopt); });
    }
    if (pongs_ == 0) waitingForPong_.push_back(std::move(handler));
}

void SocketConnection::close(long code) {
    if (failure_) return;
    if (open_) closeCode_ = static_cast<int>(code);
    breaks("cancelled");
}

void SocketConnection::arrives(Incoming incoming) {
    if (!open_) return;
    if (receivers_.empty()) {
        inbox_.push_back(std::move(incoming));
        return;
    }
    tellSession([receiver = std::move(receivers_.front()), incoming = std::move(incoming)] {
        receiver(incoming);
    });
    receivers_.pop_front();
}

}  // namespace stagehopper::recording
