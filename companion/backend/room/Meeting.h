#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "companion/backend/room/ClientMessage.h"
#include "companion/backend/room/JoinRequest.h"
#include "companion/backend/room/OutgoingQueue.h"

namespace stagehopper::companion {

/// A WebSocket close code and its reason.
struct CloseReason {
    std::uint16_t code = 1000;
    std::string_view reason;
};

/// The connection to one participant. No call may lead back into the meeting.
class Connection {
public:
    virtual ~Connection() = default;
    virtual void send(SharedText text, std::string_view topic) = 0;
    /// Messages sent before are still delivered.
    virtual void close(CloseReason reason) = 0;
    /// Keeps the connection open without a meeting.
    virtual void keepOpen() = 0;
};

/// One room: its members and the messages between them. One thread at a time.
class Meeting {
public:
    static constexpr std::size_t maxParticipants = 200;

    struct Identity {
        std::string roomCode;
        std::string roomName;
        /// In milliseconds since 1970.
        std::int64_t createdAt = 0;
        std::string secret;
    };

    explicit Meeting(Identity identity);

    const Identity& identity() const { return identity_; }
    std::vector<Participant> participants() const;

    /// Whether the client can join. In a full room it can only replace its earlier connection.
    [[nodiscard]] bool hasRoomFor(const std::string& joinId) const;
    /// Returns the public id. A second join with the same join id keeps the public id and closes
    /// the first connection.
    std::string join(const JoinRequest& request, std::shared_ptr<Connection> connection);
    /// Does nothing if the connection was replaced or never joined.
    void leave(const Connection& connection);
    void handle(const Connection& from, const ClientMessage& message);
    void end();

private:
    struct Member {
        /// Private to the client.
        std::string joinId;
        Participant participant;
        std::shared_ptr<Connection> connection;
    };
    struct Step {
        Direction direction;
        std::int64_t seq;
    };
    /// The join id and the id of the tap.
    using TapId = std::pair<std::string, std::string>;

    const Member* findMember(const Connection& connection) const;
    void handleFrom(const Member& from, const StepMessage& message);
    void handleFrom(const Member& from, const PointerMessage& message);
    void broadcastParticipants(const Connection* except);
    void addToDedup(const TapId& tap, Step step);

    Identity identity_;
    std::int64_t nextSeq_;
    std::uint64_t publicIds_ = 0;
    /// In the order of joining.
    std::vector<Member> members_;
    /// The latest taps, to recognize those that are sent again.
    std::map<TapId, Step> dedupSteps_;
    std::deque<TapId> dedupOrder_;
};

}  // namespace stagehopper::companion
