#include "ports/linux/network/DataTask.h"

#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>
#include <utility>

#include "ports/linux/network/Connector.h"
#include "ports/linux/network/UrlParts.h"

namespace stagehopper::linux_port {
namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using boost::system::error_code;

constexpr std::uint64_t bodyLimit = 16U << 20U;
constexpr std::uint32_t headerLimit = 64U << 10U;

/// One request on one connection. Its pending operations keep it alive.
class DataTask : public std::enable_shared_from_this<DataTask> {
public:
    DataTask(NetworkThread& thread, UrlParts url,
             std::function<void(platform::DataResult)> completion)
        : thread_(thread),
          url_(std::move(url)),
          completion_(std::move(completion)),
          stream_(thread.context()),
          limit_(thread.context()),
          connector_(std::make_shared<Connector>(thread, stream_)) {}

    void start(std::chrono::milliseconds limit) {
        limit_.expires_after(limit);
        limit_.async_wait([self = shared_from_this()](error_code canceled) {
            if (!canceled) self->fail("The request timed out");
        });
        connector_->start(url_, [self = shared_from_this()](const std::string& problem) {
            if (!problem.empty()) return self->fail(problem);
            self->send();
        });
    }

private:
    void send() {
        request_ = {http::verb::get, url_.target, 11};
        request_.set(http::field::host, url_.authority());
        request_.set(http::field::user_agent, "Stagehopper");
        request_.set(http::field::accept, "*/*");
        request_.set(http::field::connection, "close");
        http::async_write(stream_, request_,
                          [self = shared_from_this()](error_code error, std::size_t) {
                              if (error) return self->fail(error.message());
                              self->receive();
                          });
    }

    void receive() {
        parser_.body_limit(bodyLimit);
        parser_.header_limit(headerLimit);
        http::async_read(
            stream_, buffer_, parser_, [self = shared_from_this()](error_code error, std::size_t) {
                if (error) return self->fail(error.message());
                auto response = self->parser_.release();
                self->finish(
                    {.response = platform::HttpResponse{static_cast<int>(response.result_int()),
                                                        std::move(response.body())},
                     .error = {}});
            });
    }

    void fail(const std::string& words) {
        platform::DataResult result{.response = {}, .error = platform::UrlError{words}};
        if (parser_.is_header_done()) {
            result.response.emplace().statusCode = static_cast<int>(parser_.get().result_int());
        }
        finish(std::move(result));
    }

    void finish(platform::DataResult result) {
        const auto completion = std::exchange(completion_, nullptr);
        // A request that we have cut short has failed as well.
        if (!completion) return;
        limit_.cancel();
        connector_->cancel();
        stream_.close();
        thread_.postCompletion(
            [completion, result = std::move(result)]() mutable { completion(std::move(result)); });
    }

    NetworkThread& thread_;
    UrlParts url_;
    std::function<void(platform::DataResult)> completion_;
    WireStream stream_;
    asio::steady_timer limit_;
    std::shared_ptr<Connector> connector_;
    http::request<http::empty_body> request_;
    http::response_parser<http::string_body> parser_;
    boost::beast::flat_buffer buffer_;
};

}  // namespace

void startDataTask(NetworkThread& thread, const std::string& url, std::chrono::milliseconds limit,
                   std::function<void(platform::DataResult)> completion) {
    auto fail = [&](std::string words) {
        thread.postCompletion([completion = std::move(completion), words = std::move(words)] {
            completion({.response = {}, .error = platform::UrlError{words}});
        });
    };
    auto parts = splitUrl(url);
    if (!parts) return fail("This is not an address: " + url);
    if (parts->scheme != "http" && parts->scheme != "https")
        return fail("Connections by " + parts->scheme + " are not supported");
    std::make_shared<DataTask>(thread, std::move(*parts), std::move(completion))->start(limit);
}

}  // namespace stagehopper::linux_port
