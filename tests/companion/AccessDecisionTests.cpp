#include "companion/backend/AccessDecision.h"

#include <gtest/gtest.h>

namespace stagehopper::companion {
namespace {

/// As the host asks: a program on this machine, no browser.
Asker program(std::string path) {
    return {.fromThisMachine = true,
            .reachedAt = "127.0.0.1:3000",
            .host = "127.0.0.1:3000",
            .origin = {},
            .fetchSite = {},
            .fetchDest = {},
            .method = "GET",
            .path = std::move(path)};
}

Asker ownPage(std::string method, std::string path) {
    Asker asker = program(std::move(path));
    asker.method = std::move(method);
    asker.origin = "http://127.0.0.1:3000";
    asker.fetchSite = "same-origin";
    asker.fetchDest = "empty";
    return asker;
}

Asker phone(std::string path) {
    Asker asker = program(std::move(path));
    asker.fromThisMachine = false;
    asker.reachedAt = asker.host = "192.168.1.5:3000";
    return asker;
}

TEST(Admission, TheHostMaySeeTheHealthAndTheMeetings) {
    EXPECT_EQ(admit(program("/health")).resource, Resource::health);
    EXPECT_TRUE(admit(program("/health")).admitted());
    EXPECT_EQ(admit(program("/v1/meetings/active")).resource, Resource::activeMeetings);
    EXPECT_TRUE(admit(program("/v1/meetings/active")).admitted());
    EXPECT_EQ(admit(program("/ws")).trust, Trust::localProgram);
}

TEST(Admission, AnOwnPageMayDoEverything) {
    EXPECT_EQ(admit(ownPage("POST", "/v1/meetings")).resource, Resource::meetings);
    EXPECT_TRUE(admit(ownPage("POST", "/v1/meetings")).admitted());
    EXPECT_EQ(admit(ownPage("POST", "/v1/meetings/current")).resource, Resource::currentMeeting);
    EXPECT_TRUE(admit(ownPage("POST", "/v1/meetings/current")).admitted());
    EXPECT_EQ(admit(ownPage("DELETE", "/v1/meetings/K7M2QX")).resource, Resource::meeting);
    EXPECT_TRUE(admit(ownPage("DELETE", "/v1/meetings/K7M2QX")).admitted());
    EXPECT_EQ(admit(ownPage("GET", "/ws")).trust, Trust::ownPage);
}

TEST(Admission, AProgramWithoutAnOriginChangesNothing) {
    for (const auto& [method, path] :
         {std::pair{"POST", "/v1/meetings"}, std::pair{"POST", "/v1/meetings/current"},
          std::pair{"DELETE", "/v1/meetings/K7M2QX"}}) {
        Asker asker = program(path);
        asker.method = method;
        EXPECT_EQ(admit(asker).status, 403U) << path;
    }
}

TEST(Admission, ANameThatResolvesToThisMachineIsNotServed) {
    for (const char* host : {"evil.example:3000", "localhost:3000", "127.0.0.1", "127.0.0.1:3001",
                             "127.0.0.1:3000.evil.example", "127.1:3000", "", "192.168.1.5:3000"}) {
        Asker asker = program("/health");
        asker.host = host;
        EXPECT_EQ(admit(asker).status, 421U) << host;
    }
}

TEST(Admission, AForeignOriginIsServedNothing) {
    for (const char* origin :
         {"null", "http://evil.example", "https://127.0.0.1:3000", "http://127.0.0.1:3001",
          "http://127.0.0.1", "http://localhost:3000", "file://", ""}) {
        for (const char* path : {"/health", "/link", "/phone", "/v1/meetings/active", "/ws"}) {
            Asker asker = program(path);
            asker.origin = origin;
            EXPECT_EQ(admit(asker).status, 403U) << origin << " " << path;
        }
    }
}

TEST(Admission, APageOfTheWebMayOnlyFrameThePagesAndAskForHealth) {
    for (const char* site : {"cross-site", "same-site"}) {
        for (const char* path : {"/health", "/link", "/phone"}) {
            Asker asker = program(path);
            asker.fetchSite = site;
            EXPECT_TRUE(admit(asker).admitted()) << site << " " << path;
        }
        for (const char* path : {"/v1/meetings/active", "/ws", "/link.js", "/phone.js"}) {
            Asker asker = program(path);
            asker.fetchSite = site;
            EXPECT_EQ(admit(asker).status, 403U) << site << " " << path;
        }
    }
}

TEST(Admission, WhatTheHostReadsCannotBeShownInATagOrFrame) {
    for (const char* dest : {"script", "image", "iframe", "document", "style"}) {
        Asker asker = program("/v1/meetings/active");
        asker.fetchSite = "none";
        asker.fetchDest = dest;
        EXPECT_EQ(admit(asker).status, 403U) << dest;
    }
}

TEST(Admission, APhoneGetsItsPageAndTheRoom) {
    for (const char* path : {"/phone", "/phone.js", "/phone.css", "/phone-texts.js", "/awake.mp4",
                             "/awake.webm", "/stagehopper.svg", "/ws"}) {
        const Admission admission = admit(phone(path));
        EXPECT_TRUE(admission.admitted()) << path;
        EXPECT_EQ(admission.trust, Trust::network) << path;
    }
}

TEST(Admission, APhoneMayNeitherListNorCreate) {
    for (const char* path : {"/health", "/v1/meetings/active", "/v1/meetings", "/link", "/link.js",
                             "/v1/meetings/current", "/v1/meetings/K7M2QX"}) {
        for (const char* method : {"GET", "POST", "DELETE"}) {
            Asker asker = phone(path);
            asker.method = method;
            EXPECT_EQ(admit(asker).status, 403U) << method << " " << path;
            asker.origin = "http://192.168.1.5:3000";
            EXPECT_EQ(admit(asker).status, 403U) << method << " " << path;
        }
    }
}

TEST(Admission, AnAddressOfTheNetworkIsTheNetworkEvenOnThisMachine) {
    Asker asker = phone("/v1/meetings/active");
    asker.fromThisMachine = true;
    EXPECT_EQ(admit(asker).status, 403U);
}

TEST(Admission, ThePeersAddressIsBelievedAndNotItsHostHeader) {
    Asker asker = phone("/v1/meetings/active");
    asker.host = "127.0.0.1:3000";
    EXPECT_EQ(admit(asker).status, 421U);
    asker.reachedAt = "127.0.0.1:3000";
    EXPECT_EQ(admit(asker).status, 403U);
}

TEST(Admission, AnotherMethodIsToldTheRightOne) {
    for (const char* method : {"POST", "HEAD", "OPTIONS", "PUT", "get", ""}) {
        Asker asker = program("/health");
        asker.method = method;
        EXPECT_EQ(admit(asker).status, 405U) << method;
        EXPECT_EQ(admit(asker).allowedMethod, "GET");
    }
    EXPECT_EQ(admit(ownPage("GET", "/v1/meetings")).allowedMethod, "POST");
    EXPECT_EQ(admit(ownPage("POST", "/v1/meetings/K7M2QX")).allowedMethod, "DELETE");
}

TEST(Admission, NothingOfARequestIsNamedInTheLog) {
    EXPECT_EQ(admit(program("/phone%23K7M2QX.SECRET")).route, "unknown");
    EXPECT_EQ(admit(program("/K7M2QX.SECRET")).route, "unknown");
    EXPECT_EQ(admit(ownPage("DELETE", "/v1/meetings/SECRET")).route, "/v1/meetings/");
    EXPECT_EQ(admit(phone("/health")).route, "/health") << "refused, and known";
}

TEST(Admission, NoOtherPathExists) {
    for (const char* path :
         {"", "/", "*", "/link.html", "/phone/", "//phone", "/phone/../link", "/%70hone",
          "/../../etc/passwd", "/v1/meetings/", "/v1/meetings/K7M2QX/x", "/v1", "/HEALTH",
          "http://127.0.0.1:3000/health"}) {
        EXPECT_EQ(admit(program(path)).status, 404U) << path;
    }
}

}  // namespace
}  // namespace stagehopper::companion
