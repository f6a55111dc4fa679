#include "companion/backend/Api.h"

#include "companion/backend/ByteRange.h"
#include "companion/backend/Json.h"
#include "companion/backend/Names.h"

namespace stagehopper::companion {
namespace {

constexpr const char* jsonType = "application/json";

Answer jsonAnswer(unsigned status, std::string body) {
    return {.status = status, .contentType = jsonType, .body = std::move(body), .headers = {}};
}

/// The name in a body that is empty or a JSON object; none when it is neither, or no name.
std::optional<std::string> roomNameIn(const std::string& body) {
    if (body.empty()) return std::string();
    const auto object = nlohmann::json::parse(body, nullptr, false);
    if (!object.is_object()) return std::nullopt;
    const auto found = object.find("roomName");
    if (found == object.end()) return std::string();
    const auto* name = found->get_ptr<const std::string*>();
    if (name == nullptr || !isDisplayText(*name)) return std::nullopt;
    return *name;
}

Answer health() {
    Answer answer = jsonAnswer(200, R"({"status":"ok","program":"stagehopper-backend"})");
    // The panel's page has another origin, and has to see at least that somebody answers.
    answer.headers["Cross-Origin-Resource-Policy"] = "cross-origin";
    return answer;
}

}  // namespace

Answer errorAnswer(unsigned status, std::string_view words) {
    JsonOut error = JsonOut::object();
    error["error"] = words;
    return jsonAnswer(status, textOf(error));
}

Api::Api(Meetings& meetings, const Pages& pages, BackendLog& log, Surroundings surroundings)
    : meetings_(meetings), pages_(pages), log_(log), surroundings_(std::move(surroundings)) {}

Answer Api::answer(const Admission& admission, const Request& request) {
    switch (admission.resource) {
        case Resource::health:
            return health();
        case Resource::activeMeetings:
            return active();
        case Resource::meetings:
            return create(request.body);
        case Resource::currentMeeting:
            return current();
        case Resource::meeting:
            return end(request.asker.path);
        case Resource::file:
            return file(request);
        case Resource::room:
            break;
    }
    return errorAnswer(404, "no such thing");
}

Answer Api::active() const {
    JsonOut list = JsonOut::array();
    for (const auto& meeting : meetings_.all()) {
        const Meeting::Identity& identity = meeting->identity();
        JsonOut one = JsonOut::object();
        one["roomCode"] = identity.roomCode;
        one["roomName"] = identity.roomName;
        one["createdAt"] = identity.createdAt;
        one["participants"] = jsonOf(meeting->participants());
        list.push_back(std::move(one));
    }
    JsonOut all = JsonOut::object();
    all["meetings"] = std::move(list);
    return jsonAnswer(200, textOf(all));
}

Answer Api::create(const std::string& body) {
    const auto roomName = roomNameIn(body);
    if (!roomName) return errorAnswer(400, "malformed body");
    const auto meeting = meetings_.create(*roomName, surroundings_.millisecondsSince1970());
    if (meeting == nullptr) return errorAnswer(409, "too many meetings");
    log_.line("meeting_created", "room=" + meeting->identity().roomCode,
              BackendLog::Cause::participant);
    return jsonAnswer(201, recordOf(*meeting));
}

Answer Api::current() const {
    const auto meeting = meetings_.newest();
    return meeting == nullptr ? errorAnswer(404, "no meeting")
                              : jsonAnswer(200, recordOf(*meeting));
}

Answer Api::end(std::string_view path) {
    const std::string roomCode(path.substr(path.rfind('/') + 1));
    if (!meetings_.end(roomCode)) return errorAnswer(404, "no such meeting");
    log_.line("meeting_ended", "room=" + roomCode, BackendLog::Cause::participant);
    return {.status = 204, .contentType = {}, .body = {}, .headers = {}};
}

Answer Api::file(const Request& request) const {
    const Pages::File* file = pages_.at(request.asker.path);
    if (file == nullptr) return errorAnswer(404, "no such thing");
    Answer answer{.contentType = file->contentType, .body = file->bytes, .headers = {}};
    const std::string& host = request.asker.host;
    // Not every browser counts a socket to the same host and port as 'self'.
    answer.headers["Content-Security-Policy"] =
        "default-src 'self'; connect-src 'self' ws://" + host +
        "; base-uri 'none'; form-action 'none'; object-src 'none'";
    answer.headers["Accept-Ranges"] = "bytes";
    // The link page is made to be framed; the phone's page turns slides when it is tapped on.
    if (request.asker.path == "/phone") answer.headers["X-Frame-Options"] = "DENY";

    const std::size_t size = file->bytes.size();
    if (const auto range = parseByteRange(request.range, size)) {
        const std::string total = "/" + std::to_string(size);
        if (range->length == 0) {
            Answer outside = errorAnswer(416, "outside the file");
            outside.headers["Content-Range"] = "bytes *" + total;
            return outside;
        }
        answer.status = 206;
        answer.body = file->bytes.substr(range->first, range->length);
        answer.headers["Content-Range"] = "bytes " + std::to_string(range->first) + "-" +
                                          std::to_string(range->first + range->length - 1) + total;
    }
    return answer;
}

std::string Api::recordOf(const Meeting& meeting) const {
    const Meeting::Identity& identity = meeting.identity();
    JsonOut links = JsonOut::array();
    for (const std::string& address : surroundings_.addresses()) {
        JsonOut link = JsonOut::object();
        link["address"] = address;
        link["url"] = "http://" + address + ":" + std::to_string(surroundings_.port) + "/phone#" +
                      identity.roomCode + "." + identity.secret;
        links.push_back(std::move(link));
    }
    JsonOut record = JsonOut::object();
    record["roomCode"] = identity.roomCode;
    record["roomName"] = identity.roomName;
    record["createdAt"] = identity.createdAt;
    record["secret"] = identity.secret;
    record["links"] = std::move(links);
    return textOf(record);
}

}  // namespace stagehopper::companion
