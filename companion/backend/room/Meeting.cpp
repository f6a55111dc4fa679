#include "companion/backend/room/Meeting.h"

#include <algorithm>

#include "companion/backend/room/Names.h"
#include "companion/backend/room/ServerMessages.h"

namespace stagehopper::companion {

namespace {

constexpr std::size_t dedupCapacity = 4096;
constexpr std::string_view noTopic;

SharedText shared(std::string text) {
    return std::make_shared<const std::string>(std::move(text));
}

}  // namespace

Meeting::Meeting(Identity identity)
    : identity_(std::move(identity)), nextSeq_(identity_.createdAt) {}

std::vector<Participant> Meeting::participants() const {
    std::vector<Participant> all;
    for (const Member& member : members_) all.push_back(member.participant);
    return all;
}

bool Meeting::hasRoomFor(const std::string& joinId) const {
    return members_.size() < maxParticipants ||
           std::ranges::find(members_, joinId, &Member::joinId) != members_.end();
}

std::string Meeting::join(const JoinRequest& request, std::shared_ptr<Connection> connection) {
    std::string publicId;
    if (const auto same = std::ranges::find(members_, request.joinId, &Member::joinId);
        same != members_.end()) {
        publicId = same->participant.userId;
        same->connection->close({4001, "joined elsewhere"});
        members_.erase(same);
    } else {
        publicId = std::string(kindOf(request.joinId)) + "-" + std::to_string(++publicIds_);
    }
    const Connection* joined = connection.get();
    members_.push_back({request.joinId,
                        {publicId, request.displayName, request.role, request.cursorColor},
                        std::move(connection)});
    members_.back().connection->send(
        shared(welcomeMessage(identity_.roomCode, identity_.roomName, members_.back().participant,
                              participants())),
        noTopic);
    broadcastParticipants(joined);
    return publicId;
}

void Meeting::leave(const Connection& connection) {
    const auto left = std::erase_if(
        members_, [&](const Member& member) { return member.connection.get() == &connection; });
    if (left > 0) broadcastParticipants(nullptr);
}

void Meeting::handle(const Connection& from, const ClientMessage& message) {
    const Member* member = findMember(from);
    if (member == nullptr) return;
    std::visit([&](const auto& content) { handleFrom(*member, content); }, message);
}

void Meeting::end() {
    const SharedText ended = shared(endedMessage());
    for (const Member& member : members_) {
        member.connection->send(ended, noTopic);
        // A closed host would reconnect every second. It leaves when it finds another meeting.
        if (isHostSocket(member.joinId)) {
            member.connection->keepOpen();
        } else {
            member.connection->close({1000, "ended"});
        }
    }
    members_.clear();
}

const Meeting::Member* Meeting::findMember(const Connection& connection) const {
    const auto found = std::ranges::find_if(
        members_, [&](const Member& member) { return member.connection.get() == &connection; });
    return found == members_.end() ? nullptr : &*found;
}

void Meeting::handleFrom(const Member& from, const StepMessage& message) {
    const std::string& userId = from.participant.userId;
    const TapId tap(from.joinId, message.id);
    if (const auto known = dedupSteps_.find(tap); known != dedupSteps_.end()) {
        const auto& [direction, seq] = known->second;
        from.connection->send(shared(stepMessage(direction, seq, userId, message.id)), noTopic);
        return;
    }
    const Step newStep{message.direction, nextSeq_++};
    addToDedup(tap, newStep);
    const SharedText text = shared(stepMessage(newStep.direction, newStep.seq, userId, message.id));
    for (const Member& member : members_) member.connection->send(text, noTopic);
}

void Meeting::handleFrom(const Member& from, const PointerMessage& message) {
    const Participant& sender = from.participant;
    const SharedText text = shared(pointerMessage(sender.userId, sender.cursorColor, message));
    for (const Member& member : members_) {
        if (isOverlay(member.participant.userId)) {
            member.connection->send(text, "pointer " + sender.userId);
        }
    }
}

void Meeting::broadcastParticipants(const Connection* except) {
    const SharedText text = shared(participantsMessage(participants()));
    for (const Member& member : members_) {
        if (!showsParticipants(member.participant.userId)) continue;
        if (member.connection.get() != except) member.connection->send(text, "participants");
    }
}

void Meeting::addToDedup(const TapId& tap, Step step) {
    dedupSteps_.emplace(tap, step);
    dedupOrder_.push_back(tap);
    if (dedupOrder_.size() <= dedupCapacity) return;
    dedupSteps_.erase(dedupOrder_.front());
    dedupOrder_.pop_front();
}

}  // namespace stagehopper::companion
