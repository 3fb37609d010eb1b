// The path rules of the broadcast file system. A name begins with "DSM:/", "~/" or nothing. The
// rest is relative to the current directory, or to the root when two slashes follow "DSM:".

#include "engine/core.h"
#include "objects/observer.h"
#include "platform/files.h"
#include "platform/running.h"

namespace korvel {
namespace {

constexpr std::uint32_t kPauseMs = 500;
constexpr int kStartUpPasses = 2;
constexpr auto kNone = std::string_view::npos;
constexpr std::string_view kParentStep = "/../";
constexpr std::string_view kRootPrefix = "DSM:";

// Concatenates `directory` and `name`. False if memory runs out.
bool Join(std::string_view directory, std::string_view name, OctetString& joined) {
  OctetString path;
  if (!path.Assign(directory) || !path.Append(name)) return false;
  joined = std::move(path);
  return true;
}

bool FetchIn(std::string_view directory, std::string_view name, OctetString& bytes) {
  OctetString path;
  return Join(directory, name, path) && FetchFile(path.View(), &bytes);
}

bool FetchStartUpNames(std::string_view directory, OctetString& bytes) {
  return FetchIn(directory, "a", bytes) || FetchIn(directory, "startup", bytes);
}

bool FetchStartUpAt(std::string_view path, OctetString& bytes) {
  if (FetchFile(path, &bytes)) return true;
  OctetString& directory = TheCore().currentDirectory;
  if (!Join(path, path.ends_with('/') ? "" : "/", directory)) return false;
  if (FetchStartUpNames(directory.View(), bytes)) return true;
  directory.Clear();
  return FetchStartUpNames({}, bytes);
}

// Removes each "/../" together with the component before it. Content relies on the two
// parts being joined without a slash: x/y/../z becomes xz. Names may be long, so this is a single
// pass, which never writes past its read position.
bool RemoveParentSteps(OctetString& path) {
  char* bytes = path.MutableBytes();
  std::size_t kept = 0;
  for (std::size_t read = 0; read < path.Length(); ++read) {
    bytes[kept++] = bytes[read];
    const std::string_view text(bytes, kept);
    if (!text.ends_with(kParentStep)) continue;
    const std::size_t slash = text.substr(0, kept - kParentStep.size()).rfind('/');
    kept = slash == kNone ? 0 : slash;
  }
  return path.Assign({bytes, kept});
}

// A group name without its prefix: the directory that it is relative to, and the path from there.
struct PathParts {
  std::string_view directory;
  std::string_view rest;
  bool mayLeaveDirectory = false;
};

PathParts SplitName(std::string_view name) {
  const std::size_t slash = name.size() > 1 ? name.find('/') : kNone;
  const std::size_t start = slash == kNone ? 0 : slash + 1;
  if (start >= name.size()) return {{}, name, true};
  if (name[start] == '/') return {{}, name.substr(start + 1), false};
  const std::string_view directory = TheCore().currentDirectory.View();
  return {directory, name.substr(start), !directory.empty()};
}

// Converts a group name to a file name. False for names that lead out of the carousel, for names of
// a common interface module ("CI:"), or if memory runs out.
bool MakeFileName(std::string_view groupName, OctetString& fileName) {
  if (groupName.starts_with("CI:")) return false;
  const PathParts parts = SplitName(groupName);
  if (!parts.mayLeaveDirectory && parts.rest.starts_with("..")) return false;
  return Join(parts.directory, parts.rest, fileName) && RemoveParentSteps(fileName);
}

}  // namespace

bool FetchStartUp(std::string_view path, OctetString& bytes) {
  for (int pass = 0; pass < kStartUpPasses; ++pass) {
    if (path.empty() ? FetchStartUpNames({}, bytes) : FetchStartUpAt(path, bytes)) return true;
    PauseUnlessClosing(kPauseMs);
  }
  return false;
}

Status ResolveGroup(std::string_view groupName, OctetString& bytes) {
  OctetString fileName;
  if (!MakeFileName(groupName, fileName)) return Refuse(Reason::NoName);
  if (FetchFile(fileName.View(), &bytes)) return Status::Done;
  PauseUnlessClosing(kPauseMs);
  return Refuse(Reason::NotReadable);
}

bool SetDirectoryOfLaunched(std::string_view groupName) {
  OctetString& directory = TheCore().currentDirectory;
  if (groupName.starts_with(kRootPrefix)) {
    std::string_view path = groupName.substr(kRootPrefix.size());
    for (int slashes = 0; slashes < 2 && path.starts_with('/'); ++slashes) path.remove_prefix(1);
    // Only the first component is kept.
    const std::size_t slash = path.find('/');
    return directory.Assign(path.substr(0, slash == kNone ? 0 : slash + 1));
  }
  const std::size_t last = groupName.rfind('/');
  if (last == kNone || last < 2) return true;
  const std::size_t first = groupName.find('/');
  const std::size_t start = groupName.substr(first + 1).starts_with('/') ? first + 2 : first + 1;
  const std::size_t length = start <= last ? last + 1 - start : 0;
  return directory.Assign(groupName.substr(start, length));
}

bool SetDirectoryOfSpawned(std::string_view groupName) {
  const std::size_t last = groupName.rfind('/');
  if (last == kNone || last < 2) return true;
  // Content relies on both: the name is assumed to begin with "~/", and unlike the directory of a
  // launched application this one does not end with a slash.
  return TheCore().currentDirectory.Assign(groupName.substr(2, last - 2));
}

}  // namespace korvel
