#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "companion/backend/ClientMessage.h"
#include "companion/backend/JoinRequest.h"
#include "companion/backend/OutgoingQueue.h"

namespace stagehopper::companion {

/// Why a connection is closed: a WebSocket close code and its words.
struct CloseReason {
    std::uint16_t code = 1000;
    std::string_view reason;
};

/// The way to one participant. No call may lead back into the meeting.
class Connection {
public:
    virtual ~Connection() = default;
    virtual void send(SharedText text, std::string_view topic) = 0;
    /// What was sent before is still delivered.
    virtual void close(CloseReason reason) = 0;
    /// Stays open without a meeting, and silent.
    virtual void keepOpen() = 0;
};

/// One room: who is in it, and what they say to each other.
/// Thread: one at a time.
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

    /// Whether there is room for this one; who replaces somebody needs none.
    bool hasRoomFor(const std::string& joinId) const;
    /// The public id. One who joins again with the same join id keeps it, and the first connection
    /// is closed.
    std::string join(const JoinRequest& request, std::shared_ptr<Connection> connection);
    /// Nothing when it has been replaced, or never was here.
    void leave(const Connection& connection);
    void handle(const Connection& from, const ClientMessage& message);
    void end();

private:
    struct Member {
        /// Only its client knows it.
        std::string joinId;
        Participant participant;
        std::shared_ptr<Connection> connection;
    };
    struct Step {
        Direction direction;
        std::int64_t seq;
    };
    /// The join id, and the tap's own.
    using TapId = std::pair<std::string, std::string>;

    const Member* findMember(const Connection& connection) const;
    void handleFrom(const Member& from, const StepMessage& message);
    void handleFrom(const Member& from, const PointerMessage& message);
    void broadcastParticipants(const Connection* except);
    void remember(const TapId& tap, Step step);

    Identity identity_;
    std::int64_t nextSeq_;
    std::uint64_t publicIds_ = 0;
    /// In the order in which they came.
    std::vector<Member> members_;
    /// The latest taps, to know those that are sent again.
    std::map<TapId, Step> taps_;
    std::deque<TapId> tapsInOrder_;
};

}  // namespace stagehopper::companion
