#pragma once

#include <cstdint>

/// The names under which the settings services are found. Each store is a process of its own whose
/// server name is the store's name; its three services are the interface names.
namespace settings_manager::service_names {

inline constexpr char Persistent[] = "vx.settings_manager.PSmgr";
inline constexpr char SecretPersistent[] = "vx.settings_manager.SecretPSmgr";
inline constexpr char RdpPersistent[] = "vx.settings_manager.RdpPSmgr";
inline constexpr char MerloPersistent[] = "vx.settings_manager.MerloPSmgr";
inline constexpr char WebPersistent[] = "vx.settings_manager.WebPSmgr";
inline constexpr char UpdatePersistent[] = "vx.settings_manager.UpdatePSmgr";
inline constexpr char NonPersistent[] = "vx.settings_manager.MSmgr";

inline constexpr const char* All[] = {Persistent,
                                      SecretPersistent,
                                      RdpPersistent,
                                      MerloPersistent,
                                      WebPersistent,
                                      UpdatePersistent,
                                      NonPersistent};

/// Operations on settings, subscriptions, and the delivery of updates.
inline constexpr char Ism[] = "WzISM";
inline constexpr char IsmReg[] = "WzISMReg";
inline constexpr char IsmCbk[] = "WzISMCbk";

inline constexpr std::uint16_t IsmRiid = 1;
inline constexpr std::uint16_t IsmRegRiid = 2;
inline constexpr std::uint16_t IsmCbkRiid = 3;

/// What a client that is connected by the connection manager calls its callback channel.
inline constexpr char CmCallback[] = "//cm:";

}  // namespace settings_manager::service_names
