#pragma once

namespace platform {

/// Raises the soft limit of descriptors to the hard one and keeps the former for children.
bool RaiseDescriptorLimit();

}  // namespace platform
