#pragma once

#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <string>

#include "companion/backend/access/RoomEntry.h"
#include "companion/backend/server/Service.h"

namespace stagehopper::companion {

/// Joins the room and upgrades the connection to a WebSocket. Pending operations keep the session
/// alive. Main thread only.
void startRoomSession(boost::beast::tcp_stream stream, Service& service, Quotas::Permit permit,
                      const RoomEntry& entry, std::string peer,
                      boost::beast::http::request<boost::beast::http::string_body> request);

}  // namespace stagehopper::companion
