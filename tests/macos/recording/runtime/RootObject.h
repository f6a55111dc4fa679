#pragma once

namespace stagehopper::recording {

/// What every object answers. Once; the first look-up does it.
void defineRootObject();

}  // namespace stagehopper::recording
