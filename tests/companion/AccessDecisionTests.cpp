#include "companion/backend/access/AccessDecision.h"

#include <gtest/gtest.h>

namespace stagehopper::companion {
namespace {

/// A request of the host: a program on this machine, not a browser.
RequestContext program(std::string path) {
    return {.fromThisMachine = true,
            .localEndpoint = "127.0.0.1:3000",
            .host = "127.0.0.1:3000",
            .origin = {},
            .fetchSite = {},
            .fetchDest = {},
            .method = "GET",
            .path = std::move(path)};
}

RequestContext ownPage(std::string method, std::string path) {
    RequestContext context = program(std::move(path));
    context.method = std::move(method);
    context.origin = "http://127.0.0.1:3000";
    context.fetchSite = "same-origin";
    context.fetchDest = "empty";
    return context;
}

RequestContext phone(std::string path) {
    RequestContext context = program(std::move(path));
    context.fromThisMachine = false;
    context.localEndpoint = context.host = "192.168.1.5:3000";
    return context;
}

TEST(AccessDecision, TheHostMayReadHealthAndMeetings) {
    EXPECT_EQ(decideAccess(program("/health")).resource, Resource::health);
    EXPECT_TRUE(decideAccess(program("/health")).isAllowed());
    EXPECT_EQ(decideAccess(program("/v1/meetings/active")).resource, Resource::activeMeetings);
    EXPECT_TRUE(decideAccess(program("/v1/meetings/active")).isAllowed());
    EXPECT_EQ(decideAccess(program("/ws")).trust, Trust::localProgram);
}

TEST(AccessDecision, AnOwnPageMayDoEverything) {
    EXPECT_EQ(decideAccess(ownPage("POST", "/v1/meetings")).resource, Resource::meetings);
    EXPECT_TRUE(decideAccess(ownPage("POST", "/v1/meetings")).isAllowed());
    EXPECT_EQ(decideAccess(ownPage("POST", "/v1/meetings/current")).resource,
              Resource::currentMeeting);
    EXPECT_TRUE(decideAccess(ownPage("POST", "/v1/meetings/current")).isAllowed());
    EXPECT_EQ(decideAccess(ownPage("DELETE", "/v1/meetings/K7M2QX")).resource, Resource::meeting);
    EXPECT_TRUE(decideAccess(ownPage("DELETE", "/v1/meetings/K7M2QX")).isAllowed());
    EXPECT_EQ(decideAccess(ownPage("GET", "/ws")).trust, Trust::ownPage);
}

TEST(AccessDecision, AProgramWithoutAnOriginMayChangeNothing) {
    for (const auto& [method, path] :
         {std::pair{"POST", "/v1/meetings"}, std::pair{"POST", "/v1/meetings/current"},
          std::pair{"DELETE", "/v1/meetings/K7M2QX"}}) {
        RequestContext context = program(path);
        context.method = method;
        EXPECT_EQ(decideAccess(context).status, 403U) << path;
    }
}

TEST(AccessDecision, AHostNameThatResolvesToThisMachineIsRefused) {
    for (const char* host : {"evil.example:3000", "localhost:3000", "127.0.0.1", "127.0.0.1:3001",
                             "127.0.0.1:3000.evil.example", "127.1:3000", "", "192.168.1.5:3000"}) {
        RequestContext context = program("/health");
        context.host = host;
        EXPECT_EQ(decideAccess(context).status, 421U) << host;
    }
}

TEST(AccessDecision, AForeignOriginIsRefused) {
    for (const char* origin :
         {"null", "http://evil.example", "https://127.0.0.1:3000", "http://127.0.0.1:3001",
          "http://127.0.0.1", "http://localhost:3000", "file://", ""}) {
        for (const char* path : {"/health", "/link", "/phone", "/v1/meetings/active", "/ws"}) {
            RequestContext context = program(path);
            context.origin = origin;
            EXPECT_EQ(decideAccess(context).status, 403U) << origin << " " << path;
        }
    }
}

TEST(AccessDecision, AWebPageMayOnlyFrameThePagesAndRequestHealth) {
    for (const char* site : {"cross-site", "same-site"}) {
        for (const char* path : {"/health", "/link", "/phone"}) {
            RequestContext context = program(path);
            context.fetchSite = site;
            EXPECT_TRUE(decideAccess(context).isAllowed()) << site << " " << path;
        }
        for (const char* path : {"/v1/meetings/active", "/ws", "/link.js", "/phone.js"}) {
            RequestContext context = program(path);
            context.fetchSite = site;
            EXPECT_EQ(decideAccess(context).status, 403U) << site << " " << path;
        }
    }
}

TEST(AccessDecision, TheHostsResourcesCannotBeLoadedByATagOrFrame) {
    for (const char* dest : {"script", "image", "iframe", "document", "style"}) {
        RequestContext context = program("/v1/meetings/active");
        context.fetchSite = "none";
        context.fetchDest = dest;
        EXPECT_EQ(decideAccess(context).status, 403U) << dest;
    }
}

TEST(AccessDecision, APhoneMayLoadItsPageAndJoinTheRoom) {
    for (const char* path :
         {"/phone", "/phone.js", "/phone.css", "/phone-room.js", "/phone-texts.js", "/page.js",
          "/step-keys.js", "/awake.mp4", "/awake.webm", "/stagehopper.svg", "/ws"}) {
        const AccessDecision access = decideAccess(phone(path));
        EXPECT_TRUE(access.isAllowed()) << path;
        EXPECT_EQ(access.trust, Trust::network) << path;
    }
}

TEST(AccessDecision, APhoneMayNeitherListNorCreate) {
    for (const char* path : {"/health", "/v1/meetings/active", "/v1/meetings", "/link", "/link.js",
                             "/v1/meetings/current", "/v1/meetings/K7M2QX"}) {
        for (const char* method : {"GET", "POST", "DELETE"}) {
            RequestContext context = phone(path);
            context.method = method;
            EXPECT_EQ(decideAccess(context).status, 403U) << method << " " << path;
            context.origin = "http://192.168.1.5:3000";
            EXPECT_EQ(decideAccess(context).status, 403U) << method << " " << path;
        }
    }
}

TEST(AccessDecision, ANetworkAddressCountsAsTheNetworkEvenFromThisMachine) {
    RequestContext context = phone("/v1/meetings/active");
    context.fromThisMachine = true;
    EXPECT_EQ(decideAccess(context).status, 403U);
}

TEST(AccessDecision, ThePeerAddressDecidesAndNotTheHostHeader) {
    RequestContext context = phone("/v1/meetings/active");
    context.host = "127.0.0.1:3000";
    EXPECT_EQ(decideAccess(context).status, 421U);
    context.localEndpoint = "127.0.0.1:3000";
    EXPECT_EQ(decideAccess(context).status, 403U);
}

TEST(AccessDecision, AWrongMethodGetsTheAllowedOne) {
    for (const char* method : {"POST", "HEAD", "OPTIONS", "PUT", "get", ""}) {
        RequestContext context = program("/health");
        context.method = method;
        EXPECT_EQ(decideAccess(context).status, 405U) << method;
        EXPECT_EQ(decideAccess(context).allowedMethod, "GET");
    }
    EXPECT_EQ(decideAccess(ownPage("GET", "/v1/meetings")).allowedMethod, "POST");
    EXPECT_EQ(decideAccess(ownPage("POST", "/v1/meetings/K7M2QX")).allowedMethod, "DELETE");
}

TEST(AccessDecision, TheLoggedRouteContainsNoTextOfTheRequest) {
    EXPECT_EQ(decideAccess(program("/phone%23K7M2QX.SECRET")).route, "unknown");
    EXPECT_EQ(decideAccess(program("/K7M2QX.SECRET")).route, "unknown");
    EXPECT_EQ(decideAccess(ownPage("DELETE", "/v1/meetings/SECRET")).route, "/v1/meetings/");
    EXPECT_EQ(decideAccess(phone("/health")).route, "/health") << "refused, but a known path";
}

TEST(AccessDecision, OtherPathsAreNotFound) {
    for (const char* path :
         {"", "/", "*", "/link.html", "/phone/", "//phone", "/phone/../link", "/%70hone",
          "/../../etc/passwd", "/v1/meetings/", "/v1/meetings/K7M2QX/x", "/v1", "/HEALTH",
          "http://127.0.0.1:3000/health"}) {
        EXPECT_EQ(decideAccess(program(path)).status, 404U) << path;
    }
}

}  // namespace
}  // namespace stagehopper::companion
