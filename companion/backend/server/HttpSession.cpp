#include "companion/backend/server/HttpSession.h"

#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <chrono>

#include "companion/backend/server/RoomSession.h"

namespace stagehopper::companion {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using namespace std::chrono_literals;

namespace {

constexpr std::uint32_t maxHeaderBytes = 8 * 1024;
constexpr std::size_t maxBodyBytes = 4 * 1024;
constexpr auto requestTimeout = 10s;
constexpr auto lingerTimeout = 2s;

using HttpRequest = http::request<http::string_body>;
using HttpResponse = http::response<http::string_body>;

std::optional<std::string> header(const HttpRequest& request, std::string_view name) {
    const auto found = request.find(name);
    if (found == request.end()) return std::nullopt;
    return std::string(found->value());
}

/// Whether no header that decides about access is repeated: two readers could pick different ones.
bool hasUniqueHeaders(const HttpRequest& request) {
    for (const std::string_view name : {"Host", "Origin", "Sec-Fetch-Site", "Sec-Fetch-Dest"}) {
        if (request.count(name) > 1) return false;
    }
    return true;
}

RequestContext contextOf(const HttpRequest& request, const std::string& peer,
                         const std::string& localEndpoint) {
    const std::string_view target(request.target());
    return {.fromThisMachine = peer == "127.0.0.1",
            .localEndpoint = localEndpoint,
            .host = header(request, "Host").value_or(""),
            .origin = header(request, "Origin"),
            .fetchSite = header(request, "Sec-Fetch-Site"),
            .fetchDest = header(request, "Sec-Fetch-Dest"),
            .method = std::string(request.method_string()),
            .path = std::string(target.substr(0, target.find('?')))};
}

std::string_view queryOf(const HttpRequest& request) {
    const std::string_view target(request.target());
    const std::size_t mark = target.find('?');
    return mark == std::string_view::npos ? std::string_view() : target.substr(mark + 1);
}

}  // namespace

HttpSession::HttpSession(asio::ip::tcp::socket socket, Service& service, Quotas::Permit permit)
    : stream_(std::move(socket)),
      service_(service),
      permit_(std::move(permit)),
      buffer_(maxHeaderBytes + maxBodyBytes) {
    beast::error_code error;
    const auto remote = stream_.socket().remote_endpoint(error);
    const auto local = stream_.socket().local_endpoint(error);
    peer_ = remote.address().to_string();
    localEndpoint_ = local.address().to_string() + ":" + std::to_string(local.port());
}

void HttpSession::serve() {
    parser_.emplace();
    parser_->header_limit(maxHeaderBytes);
    parser_->body_limit(maxBodyBytes);
    // For the whole request, so that sending it byte by byte gains no time.
    stream_.expires_after(requestTimeout);
    http::async_read(stream_, buffer_, *parser_,
                     [self = shared_from_this()](beast::error_code error, std::size_t) {
                         self->onRequest(error);
                     });
}

void HttpSession::refuse() {
    stream_.expires_after(requestTimeout);
    logRefusal(503, "-", "too many connections");
    respond(errorResponse(503, "too many connections"), false);
}

void HttpSession::onRequest(beast::error_code error) {
    if (error) return onReadError(error);
    const HttpRequest& request = parser_->get();
    if (!hasUniqueHeaders(request)) {
        logRefusal(400, "-", "a header twice");
        return respond(errorResponse(400, "malformed request"), false);
    }
    const RequestContext context = contextOf(request, peer_, localEndpoint_);
    const AccessDecision access = decideAccess(context);
    if (!access.isAllowed()) {
        logRefusal(access.status, access.route, access.reason);
        Response refused = errorResponse(access.status, access.reason);
        if (!access.allowedMethod.empty()) refused.headers["Allow"] = access.allowedMethod;
        return respond(std::move(refused), request.keep_alive());
    }
    if (access.resource == Resource::room) {
        return enter(queryOf(request), access.trust, beast::websocket::is_upgrade(request));
    }
    Response response = service_.api.handle(
        access, {context, header(request, "Range").value_or(""), request.body()});
    if (response.status >= 400) logRefusal(response.status, access.route, "see answer");
    respond(std::move(response), request.keep_alive());
}

void HttpSession::onReadError(beast::error_code error) {
    const bool begun = parser_->got_some();
    if (error == http::error::header_limit || error == http::error::buffer_overflow) {
        logRefusal(431, "-", "header too large");
        return respond(errorResponse(431, "header too large"), false);
    }
    if (error == http::error::body_limit) {
        logRefusal(413, "-", "body too large");
        return respond(errorResponse(413, "body too large"), false);
    }
    if (error == beast::error::timeout || error == http::error::partial_message) {
        if (begun)
            service_.log.line("request_unfinished", "peer=" + peer_, BackendLog::Cause::stranger);
        return;
    }
    // Any other error of the parser means a malformed request.
    if (error != http::error::end_of_stream &&
        error.category() == http::make_error_code(http::error::bad_method).category()) {
        logRefusal(400, "-", error.message());
        return respond(errorResponse(400, "malformed request"), false);
    }
}

void HttpSession::enter(std::string_view query, Trust trust, bool upgrade) {
    const auto result = enterRoom(
        {.query = query, .trust = trust, .address = peer_, .now = std::chrono::steady_clock::now()},
        service_.meetings, service_.failedLogins);
    if (const auto* refusal = std::get_if<EntryRefusal>(&result)) return refuseEntry(*refusal);
    if (!upgrade) return refuseEntry({426, "the room is a WebSocket"});
    // A client must not send before the handshake is complete.
    if (buffer_.size() > 0) return refuseEntry({400, "too early"});
    stream_.expires_never();
    startRoomSession(std::move(stream_), service_, std::move(permit_), std::get<RoomEntry>(result),
                     peer_, parser_->release());
}

void HttpSession::refuseEntry(const EntryRefusal& refusal) {
    logRefusal(refusal.status, "/ws", refusal.reason);
    Response response = errorResponse(refusal.status, refusal.reason);
    if (refusal.status == 426) response.headers["Upgrade"] = "websocket";
    respond(std::move(response), false);
}

void HttpSession::respond(Response response, bool keepAlive) {
    auto message = std::make_shared<HttpResponse>();
    message->version(11);
    message->result(response.status);
    message->set("Cache-Control", "no-store");
    message->set("X-Content-Type-Options", "nosniff");
    message->set("Referrer-Policy", "no-referrer");
    message->set("Cross-Origin-Resource-Policy", "same-origin");
    for (const auto& [name, value] : response.headers) message->set(name, value);
    if (!response.contentType.empty()) {
        message->set(http::field::content_type, response.contentType);
    }
    message->body() = std::move(response.body);
    message->keep_alive(keepAlive);
    message->prepare_payload();
    // Content-Length stays that of the response to a GET.
    if (parser_ && parser_->get().method() == http::verb::head) message->body().clear();
    stream_.expires_after(requestTimeout);
    http::async_write(stream_, *message,
                      [self = shared_from_this(), message](beast::error_code error, std::size_t) {
                          if (error) return;
                          message->keep_alive() ? self->serve() : self->linger();
                      });
}

void HttpSession::logRefusal(unsigned status, std::string_view route, std::string_view reason) {
    service_.log.line("refused",
                      "status=" + std::to_string(status) + " peer=" + peer_ +
                          " path=" + std::string(route) + " reason=" + std::string(reason),
                      BackendLog::Cause::stranger);
}

void HttpSession::linger() {
    beast::error_code ignored;
    stream_.socket().shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
    stream_.expires_after(lingerTimeout);
    discard();
}

void HttpSession::discard() {
    buffer_.clear();
    stream_.async_read_some(buffer_.prepare(maxHeaderBytes),
                            [self = shared_from_this()](beast::error_code error, std::size_t) {
                                if (!error) self->discard();
                            });
}

}  // namespace stagehopper::companion
