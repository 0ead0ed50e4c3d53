// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/device_address.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "base/printable.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace marlinset {
namespace {

constexpr std::string_view kTcp = "tcp";
constexpr std::string_view kRfc2217 = "rfc2217";
constexpr int kHighestTcpPort = 65535;
constexpr std::size_t kLongestName = 253;
constexpr std::size_t kLongestLabel = 63;
constexpr std::size_t kGroups = 8;
const char* const kExample =
    " Write tcp://HOST:PORT or rfc2217://HOST:PORT, for example tcp://192.0.2.7:4001.";

// Not the functions of <cctype>: those depend on the locale.
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
bool All(std::string_view text, bool (*is)(char)) {
  return std::all_of(text.begin(), text.end(), is);
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// "tcp" of "TCP://..."; empty if the text begins with no scheme.
std::string SchemeOf(std::string_view device) {
  const std::size_t colon = device.find(':');
  if (colon == std::string_view::npos || colon == 0 || !IsLetter(device[0])) return {};
  const std::string_view scheme = device.substr(0, colon);
  if (!All(scheme, [](char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.'; }))
    return {};
  const std::string lower = Lower(scheme);
  const bool known = lower == kTcp || lower == kRfc2217;
  return known || device.substr(colon).starts_with("://") ? lower : std::string();
}

std::vector<std::string_view> Split(std::string_view text, char at) {
  std::vector<std::string_view> parts;
  for (std::size_t end = 0; (end = text.find(at)) != std::string_view::npos; text.remove_prefix(end + 1))
    parts.push_back(text.substr(0, end));
  parts.push_back(text);
  return parts;
}

std::optional<int> NumberOf(std::string_view text, int base, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && IsHexDigit(text[0]) && number <= most ? std::optional(number) : std::nullopt;
}

/// Four numbers without leading zeros, which some systems read as octal.
std::optional<std::uint32_t> IPv4Of(std::string_view text) {
  const std::vector<std::string_view> parts = Split(text, '.');
  if (parts.size() != 4) return std::nullopt;
  std::uint32_t address = 0;
  for (const std::string_view part : parts) {
    const auto number = NumberOf(part, 10, 255);
    if (!number || (part.size() > 1 && part[0] == '0')) return std::nullopt;
    address = address << 8 | static_cast<std::uint32_t>(*number);
  }
  return address;
}

/// The groups on one side of "::"; the last of them all may be an IPv4 address, which makes two.
bool AddGroups(std::string_view text, bool last, std::vector<std::uint16_t>& groups) {
  if (text.empty()) return true;
  const std::vector<std::string_view> parts = Split(text, ':');
  for (const std::string_view& part : parts) {
    const auto ipv4 = last && &part == &parts.back() ? IPv4Of(part) : std::nullopt;
    const auto group = part.size() <= 4 ? NumberOf(part, 16, 0xFFFF) : std::nullopt;
    if (!ipv4 && !group) return false;
    if (ipv4) groups.push_back(static_cast<std::uint16_t>(*ipv4 >> 16));
    groups.push_back(static_cast<std::uint16_t>(ipv4 ? *ipv4 & 0xFFFF : static_cast<std::uint32_t>(*group)));
  }
  return true;
}

std::optional<std::vector<std::uint16_t>> IPv6Of(std::string_view text) {
  const std::size_t gap = text.find("::");
  const bool gapped = gap != std::string_view::npos;
  std::vector<std::uint16_t> groups;
  std::vector<std::uint16_t> behind;
  if (!AddGroups(text.substr(0, gap), !gapped, groups)) return std::nullopt;
  if (gapped && !AddGroups(text.substr(gap + 2), true, behind)) return std::nullopt;
  const std::size_t count = groups.size() + behind.size();
  if (gapped ? count >= kGroups : count != kGroups) return std::nullopt;
  groups.resize(kGroups - behind.size());
  groups.insert(groups.end(), behind.begin(), behind.end());
  return groups;
}

/// With the interface of a link-local address: "fe80::1%eth0".
bool IsIPv6(std::string_view host) {
  const std::size_t percent = host.find('%');
  const std::string_view zone =
      percent == std::string_view::npos ? std::string_view("none") : host.substr(percent + 1);
  const auto fits = [](char c) { return IsLetter(c) || IsDigit(c) || c == '.' || c == '_' || c == '-'; };
  return IPv6Of(host.substr(0, percent)) && !zone.empty() && All(zone, fits);
}

bool IsLabel(std::string_view label) {
  const auto fits = [](char c) { return IsLetter(c) || IsDigit(c) || c == '-' || c == '_'; };
  return !label.empty() && label.size() <= kLongestLabel && All(label, fits) && label.front() != '-' &&
         label.back() != '-';
}

/// What is wrong with a name or an IPv4 address. "192.168.1" would be looked up as 192.168.0.1, so a name
/// that ends in a number has to be a complete address.
std::string NameFault(std::string_view host) {
  const std::string quoted = Quoted(Printable(host));
  std::string_view name = host;
  if (name.ends_with('.')) name.remove_suffix(1);
  const std::vector<std::string_view> labels = Split(name, '.');
  if (name.size() > kLongestName || !std::all_of(labels.begin(), labels.end(), IsLabel))
    return quoted + " cannot be the name of a host.";
  const std::string last = Lower(labels.back());
  const bool numeric = All(last, IsDigit) || (last.starts_with("0x") && All(last.substr(2), IsHexDigit));
  if (numeric && !IPv4Of(host))
    return quoted + " is no IPv4 address: that is four numbers from 0 to 255 without leading zeros.";
  return {};
}

std::string PortFault(std::string_view port) {
  if (port.empty()) return std::string("the address names no port number.") + kExample;
  if (!All(port, IsDigit))
    return std::string("what follows the host has to be a port number and nothing else.") + kExample;
  if (NumberOf(port, 10, kHighestTcpPort).value_or(0) > 0) return {};
  return "the port number " + std::string(port) + " does not exist: it has to be 1 to 65535.";
}

/// Reads an address into `address`; returns what is wrong with it.
std::string Read(std::string_view device, DeviceAddress& address) {
  const std::string_view text = Trimmed(device);
  const std::string scheme = SchemeOf(text);
  std::string_view rest = text.substr(scheme.size());
  address.rfc2217 = scheme == kRfc2217;
  if (scheme != kTcp && !address.rfc2217) return "an address cannot begin with " + scheme + "://." + kExample;
  if (!rest.starts_with("://")) return "two slashes have to follow " + scheme + ":." + kExample;
  rest.remove_prefix(3);
  if (rest.find('@') != std::string_view::npos)
    return std::string("an address takes no user and no password, because the tool signs in nowhere.") +
           kExample;
  if (rest.find_first_of("/?#") != std::string_view::npos)
    return std::string("nothing may follow the port number.") + kExample;
  const bool bracket = rest.starts_with('[');
  const std::size_t end = bracket ? rest.find(']') : rest.find(':');
  if (bracket && end == std::string_view::npos) return "the bracket of the IPv6 address is not closed.";
  if (!bracket && end != std::string_view::npos && rest.find(':', end + 1) != std::string_view::npos)
    return "an IPv6 address needs brackets, for example " + scheme + "://[2001:db8::7]:4001.";
  const std::string_view host = bracket ? rest.substr(1, end - 1) : rest.substr(0, end);
  if (host.empty()) return std::string("the address names no host.") + kExample;
  if (bracket && !IsIPv6(host)) return Quoted(Printable(host)) + " is no IPv6 address.";
  if (!bracket && !NameFault(host).empty()) return NameFault(host);
  std::string_view port = rest.substr(std::min(end, rest.size()));
  if (bracket) port.remove_prefix(1);
  if (!port.empty() && !port.starts_with(':'))
    return std::string("a colon and the port number have to follow the bracket.") + kExample;
  if (!port.empty()) port.remove_prefix(1);
  if (std::string fault = PortFault(port); !fault.empty()) return fault;
  address.host = host;
  address.port = *NumberOf(port, 10, kHighestTcpPort);
  return {};
}

/// The device's node: the path behind all links; a name without a folder is also looked up in /dev. Empty if
/// there is no such file. (std::filesystem::equivalent does not compare devices.)
std::filesystem::path NodeOf(const std::string& name) {
  std::error_code unknown;
  const std::filesystem::path path = std::filesystem::canonical(name, unknown);
  return unknown ? std::filesystem::canonical("/dev/" + name, unknown) : path;
}

/// The same for all spellings of a host: this computer by its usual names, an IPv4 address as an IPv6 one.
std::string SpellingOfHost(const std::string& name) {
  std::string host = Lower(name);
  if (host.ends_with('.')) host.pop_back();
  const std::size_t percent = host.find('%');
  if (host == "localhost") host = "::1";
  const auto ipv4 = IPv4Of(host);
  auto groups = IPv6Of(ipv4 ? "::ffff:" + host : host.substr(0, percent));
  if (!groups) return host;
  for (const char* here : {"::ffff:127.0.0.1", "::ffff:0.0.0.0", "::"}) {
    if (groups == IPv6Of(here)) groups = IPv6Of("::1");
  }
  std::string spelling;
  for (const std::uint16_t group : *groups) spelling += std::to_string(group) + ",";
  return spelling + (percent == std::string::npos ? "" : name.substr(percent));
}

}  // namespace

std::string DeviceAddress::HostText() const {
  return host.find(':') == std::string::npos ? host : "[" + host + "]";
}

bool IsAddress(std::string_view device) {
  return !SchemeOf(Trimmed(device)).empty();
}

std::string ShownDevice(std::string_view device) {
  const std::string_view text = Trimmed(device);
  const std::string scheme = SchemeOf(text);
  const std::size_t at = scheme.empty() ? std::string_view::npos : text.rfind('@');
  if (at == std::string_view::npos) return Printable(device);
  return scheme + "://…" + Printable(text.substr(at));
}

std::string AddressFault(std::string_view device) {
  DeviceAddress address;
  return IsAddress(device) ? Read(device, address) : std::string();
}

DeviceAddress ParseAddress(std::string_view device) {
  DeviceAddress address;
  const std::string fault = Read(device, address);
  if (!fault.empty()) throw RuntimeError(kErrPort, fault);
  return address;
}

std::string AddressSpelling(std::string_view device) {
  DeviceAddress address;
  if (!IsAddress(device) || !Read(device, address).empty()) return {};
  return SpellingOfHost(address.host) + ":" + std::to_string(address.port);
}

bool PathExists(const std::string& path) {
  return !NodeOf(path).empty();
}

bool SameDevice(const std::string& a, const std::string& b) {
  if (a == b) return true;
  if (!IsAddress(a) && !IsAddress(b)) {
    const std::filesystem::path real = NodeOf(a);
    return !real.empty() && real == NodeOf(b);
  }
  const std::string spelling = AddressSpelling(a);
  return !spelling.empty() && spelling == AddressSpelling(b);
}

}  // namespace marlinset
