#pragma once

namespace stagehopper::recording {

/// Defines the messages of every object. Once, at the first look-up.
void defineRootObject();

}  // namespace stagehopper::recording
