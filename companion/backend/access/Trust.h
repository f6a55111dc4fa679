#pragma once

namespace stagehopper::companion {

/// How far a peer is trusted, in ascending order.
enum class Trust {
    /// Any peer in the local network.
    network,
    /// A program on this machine, or a web page in a browser on it. Such a page may ask for what a
    /// program may ask for, because it cannot read the response: its origin is another one.
    localProgram,
    /// A page served by this backend, on this machine.
    ownPage,
};

}  // namespace stagehopper::companion
