#pragma once

/// Results of the operating system's calls: 0 for success, otherwise one of these. An errno never
/// leaves the platform.
inline constexpr int XoOk = 0;

/// The object behind the handle, or the server behind the name, is gone or was never there.
inline constexpr int XoObjectGone = static_cast<int>(0x90000013U);

/// The time limit has passed.
inline constexpr int XoTimedOut = static_cast<int>(0x90000014U);

inline constexpr int XoInvalidArgument = static_cast<int>(0x90000001U);
inline constexpr int XoRefused = static_cast<int>(0x90000003U);
inline constexpr int XoNoResources = static_cast<int>(0x90000004U);
inline constexpr int XoBroken = static_cast<int>(0x90000005U);
inline constexpr int XoTooBig = static_cast<int>(0x90000006U);
