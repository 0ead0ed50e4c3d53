// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

/// A serial line behind a device server: tcp://HOST:PORT passes the bare bytes, rfc2217://HOST:PORT is Telnet
/// with control of the server's serial port.
struct DeviceAddress {
  bool rfc2217 = false;
  std::string host;  ///< a name, an IPv4 address, or an IPv6 address without its brackets
  int port = 0;      ///< 1 to 65535

  /// The host as messages show it, an IPv6 address in brackets.
  std::string HostText() const;
};

/// Whether a device's name is meant as an address. Whatever looks like one never counts as a path, right or
/// wrong; a file with such a name can be written as ./NAME.
bool IsAddress(std::string_view device);

/// A device's name as it may be shown: in printable characters, with "…" for the user and password of an
/// address. The tool signs in nowhere, but the settings can hold what somebody wrote into them.
std::string ShownDevice(std::string_view device);

/// What is wrong with an address, and how to write it; empty for a right one and for a path. Begins in lower
/// case, for messages to put something before it. Repeats no part that may be a password.
std::string AddressFault(std::string_view device);

/// Reads an address. Throws kErrPort, with AddressFault as its description, if it is wrong.
DeviceAddress ParseAddress(std::string_view device);

/// A text that is the same for all spellings of one host and port, whatever the protocol; empty for a wrong
/// address. Names are not looked up.
std::string AddressSpelling(std::string_view device);

/// Whether a path leads to something now; a name without a folder is also looked up in /dev.
bool PathExists(const std::string& path);

/// Whether two names lead to one device: a path and a link to it, or two spellings of a host and its port.
bool SameDevice(const std::string& a, const std::string& b);

}  // namespace marlinset
