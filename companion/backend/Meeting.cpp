#include "companion/backend/Meeting.h"

#include <algorithm>

#include "companion/backend/Names.h"
#include "companion/backend/ServerMessages.h"

namespace stagehopper::companion {
namespace {

constexpr std::size_t maxRememberedTaps = 4096;
constexpr std::string_view everyOneMatters;

SharedText shared(std::string text) {
    return std::make_shared<const std::string>(std::move(text));
}

}  // namespace

Meeting::Meeting(Identity identity)
    : identity_(std::move(identity)), nextSeq_(identity_.createdAt) {}

std::vector<Participant> Meeting::participants() const {
    std::vector<Participant> all;
    for (const Seat& seat : seats_) all.push_back(seat.participant);
    return all;
}

bool Meeting::hasRoomFor(const std::string& joinId) const {
    return seats_.size() < maxParticipants ||
           std::ranges::find(seats_, joinId, &Seat::joinId) != seats_.end();
}

std::string Meeting::join(const JoinRequest& request, std::shared_ptr<Connection> connection) {
    std::string publicId;
    if (const auto same = std::ranges::find(seats_, request.joinId, &Seat::joinId);
        same != seats_.end()) {
        publicId = same->participant.userId;
        same->connection->close({4001, "joined elsewhere"});
        seats_.erase(same);
    } else {
        publicId = std::string(kindOf(request.joinId)) + "-" + std::to_string(++publicIds_);
    }
    const Connection* joined = connection.get();
    seats_.push_back({request.joinId,
                      {publicId, request.displayName, request.role, request.cursorColor},
                      std::move(connection)});
    seats_.back().connection->send(
        shared(welcomeMessage(identity_.roomCode, identity_.roomName, seats_.back().participant,
                              participants())),
        everyOneMatters);
    tellParticipants(joined);
    return publicId;
}

void Meeting::leave(const Connection& connection) {
    const auto left = std::erase_if(
        seats_, [&](const Seat& seat) { return seat.connection.get() == &connection; });
    if (left > 0) tellParticipants(nullptr);
}

void Meeting::say(const Connection& from, const ClientMessage& message) {
    const Seat* seat = seatOf(from);
    if (seat == nullptr) return;
    if (const auto* stepped = std::get_if<StepMessage>(&message)) step(*seat, *stepped);
    if (const auto* pointed = std::get_if<PointerMessage>(&message)) point(*seat, *pointed);
}

void Meeting::end() {
    const SharedText ended = shared(endedMessage());
    for (const Seat& seat : seats_) {
        seat.connection->send(ended, everyOneMatters);
        // A host that is closed comes back every second; it leaves by itself for another meeting.
        if (isHostSocket(seat.joinId)) {
            seat.connection->wait();
        } else {
            seat.connection->close({1000, "ended"});
        }
    }
    seats_.clear();
}

const Meeting::Seat* Meeting::seatOf(const Connection& connection) const {
    const auto found = std::ranges::find_if(
        seats_, [&](const Seat& seat) { return seat.connection.get() == &connection; });
    return found == seats_.end() ? nullptr : &*found;
}

void Meeting::step(const Seat& from, const StepMessage& message) {
    const std::string& userId = from.participant.userId;
    const TapId tap(from.joinId, message.id);
    if (const auto known = taps_.find(tap); known != taps_.end()) {
        const auto& [direction, seq] = known->second;
        from.connection->send(shared(stepMessage(direction, seq, userId, message.id)),
                              everyOneMatters);
        return;
    }
    const Step made{message.direction, nextSeq_++};
    remember(tap, made);
    const SharedText text = shared(stepMessage(made.direction, made.seq, userId, message.id));
    for (const Seat& seat : seats_) seat.connection->send(text, everyOneMatters);
}

void Meeting::point(const Seat& from, const PointerMessage& message) {
    const Participant& who = from.participant;
    const SharedText text = shared(pointerMessage(who.userId, who.cursorColor, message));
    for (const Seat& seat : seats_) {
        if (isOverlay(seat.participant.userId)) {
            seat.connection->send(text, "pointer " + who.userId);
        }
    }
}

void Meeting::tellParticipants(const Connection* except) {
    const SharedText text = shared(participantsMessage(participants()));
    for (const Seat& seat : seats_) {
        const bool shows = showsParticipants(seat.participant.userId);
        if (shows && seat.connection.get() != except) seat.connection->send(text, "participants");
    }
}

void Meeting::remember(const TapId& tap, Step step) {
    taps_.emplace(tap, step);
    tapsInOrder_.push_back(tap);
    if (tapsInOrder_.size() <= maxRememberedTaps) return;
    taps_.erase(tapsInOrder_.front());
    tapsInOrder_.pop_front();
}

}  // namespace stagehopper::companion
