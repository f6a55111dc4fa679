#include <utility>

#include "app/AppController.h"
#include "platform/Dispatch.h"
#include "platform/Json.h"
#include "platform/UrlSession.h"
#include "slidechannel/ActiveMeetings.h"
#include "slidechannel/MeetingRanking.h"

namespace stagehopper {

namespace {

constexpr platform::Duration discoveryInterval{4.0};

std::optional<ActiveMeetingsResponse> activeMeetings(platform::Json& json,
                                                     const platform::DataResult& result) {
    const auto& response = result.response;
    if (result.error || !response || response->statusCode != platform::statusOk)
        return std::nullopt;
    const auto document = json.decoded(response->body);
    return document ? decodeActiveMeetings(*document) : std::nullopt;
}

}  // namespace

void AppController::startNativeSlideDiscovery() {
    if (nativeSlideDiscoveryTimer) nativeSlideDiscoveryTimer->invalidate();
    nativeSlideDiscoveryTimer =
        platform_.dispatch.repeatMain(discoveryInterval, [weak = weak_from_this()] {
            if (const auto self = weak.lock()) self->discoverActiveMeetingAndConnectIfNeeded();
        });
    discoverActiveMeetingAndConnectIfNeeded();
}

void AppController::discoverActiveMeetingAndConnectIfNeeded() {
    if (nativeSlideDiscoveryInFlight.exchange(true)) return;
    const auto baseUrl = firstHealthyLocalBackendBaseURL();
    if (!baseUrl) {
        nativeSlideDiscoveryInFlight = false;
        return;
    }
    platform_.urlSession.startDataTask(
        *baseUrl + "/v1/meetings/active",
        [weak = weak_from_this(), baseUrl = *baseUrl](const platform::DataResult& result) {
            const auto self = weak.lock();
            if (!self) return;
            if (auto response = activeMeetings(self->platform_.json, result)) {
                auto chosen = meetingToFollow(std::move(response->meetings));
                self->platform_.dispatch.asyncMain([weak, baseUrl, chosen = std::move(chosen)] {
                    const auto app = weak.lock();
                    if (!app || app->appIsTerminating || !chosen) return;
                    app->connectNativeSlideSocket(baseUrl, chosen->roomCode, "active_discovery");
                });
            }
            self->nativeSlideDiscoveryInFlight = false;
        });
}

}  // namespace stagehopper
