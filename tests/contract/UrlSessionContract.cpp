// HTTP requests, the same on every port.

#include <gmock/gmock.h>

#include "tests/contract/UrlSessionFixture.h"

namespace stagehopper {
namespace {

using platform::DataResult;
using testing::ElementsAre;

/// A result in one line: its content, or "error".
std::string line(const DataResult& result) {
    std::string words = result.error ? errorIn(*result.error) : std::string();
    if (!result.response) return words;
    if (!words.empty()) words = ", " + words;
    return std::to_string(result.response->statusCode) + " " + result.response->body + words;
}

class UrlSessionContract : public UrlSessionTest {
protected:
    void get(const std::string& url) {
        session.startDataTask(url,
                              [came = came](const DataResult& result) { came->add(line(result)); });
    }
};

TEST_F(UrlSessionContract, ARequestGetsStatusAndBodyWhateverTheStatus) {
    server.answers("/health", {200, "fine"});
    server.answers("/broken", {500, "oh"});
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    get("http://" + server.authority() + "/broken");
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("200 fine", "500 oh"));
}

TEST_F(UrlSessionContract, ARedirectIsAResponseAndIsNotFollowed) {
    server.answers("/elsewhere", {200, "fine"});
    server.redirects("/health", "http://" + server.authority() + "/elsewhere");
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("302 "));
}

TEST_F(UrlSessionContract, AStatusIsDeliveredWithAnIncompleteBody) {
    server.breaksOff("/health", {200, "half a"});
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("200 , error"));
}

TEST_F(UrlSessionContract, ARefusedRequestAndAnInvalidUrlFailWithAMessage) {
    get("http://" + harness->refusingAuthority() + "/health");
    get("no address");
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("error", "error"));
}

TEST_F(UrlSessionContract, ARequestWithoutAnswerDoesNotDelayOthers) {
    server.neverAnswers("/silent");
    server.answers("/health", {200, "fine"});
    get("http://" + server.authority() + "/silent");
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("200 fine"));
}

}  // namespace
}  // namespace stagehopper
