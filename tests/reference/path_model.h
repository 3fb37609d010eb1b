// A reference model of names: the file to which a group name or a content reference refers, and the
// current directory after Launch and Spawn.
#pragma once

#include <algorithm>
#include <string>

#include "comparison.h"

namespace korvel::test {

class PathModel {
 public:
  struct Setup {};

  explicit PathModel(const Setup& /*setup*/) {}

  // `step.last` is a name, and the step's number is 1 if every file exists. The result holds the
  // fetched paths instead of events.
  Outcome Do(const Step& step) {
    const std::string& name = step.last;
    if (step.action == "Content") return {Status::Done, ContentPath(name), "", 0};
    if (step.action == "Spawn" && waiting_ == 5) return {Status::Refused, "", "", 0};
    if (step.action == "Spawn") ++waiting_;
    // No file has an empty path.
    const bool isFound = step.numbers[0] == 1 && !IsRejected(name) && Fetched(name) != "[]";
    Outcome outcome{isFound ? Status::Done : Status::Refused, Fetched(name), "", 0};
    if (isFound && step.action == "Launch") EnterByLaunch(name);
    if (isFound && step.action == "Spawn") EnterBySpawn(name);
    return outcome;
  }

  // The current directory shows in the path of a name.
  std::string State() const { return Fetched("~/x"); }

 private:
  static std::string ContentPath(const std::string& reference) {
    std::string path = reference.substr(reference.find('/') + 1);  // all of it without a slash
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
  }

  static std::size_t Start(const std::string& name) {
    return name.size() > 1 ? name.find('/') + 1 : 0;  // 0 without a slash
  }

  bool IsRejected(const std::string& name) const {
    if (name.starts_with("CI:")) return true;
    const std::string rest = name.substr(Start(name));
    return rest.starts_with("/..") || (directory_.empty() && rest.starts_with(".."));
  }

  std::string FileOf(const std::string& name) const {
    const std::string rest = name.substr(Start(name));
    if (rest.empty()) return name;
    return rest[0] == '/' ? rest.substr(1) : directory_ + rest;
  }

  static std::string Normalised(std::string file) {
    for (;;) {
      const std::size_t up = file.find("/../");
      if (up == std::string::npos) return file;
      const std::size_t slash = file.substr(0, up).rfind('/');
      const std::string kept = slash == std::string::npos ? "" : file.substr(0, slash);
      file = kept + file.substr(up + 4);
    }
  }

  std::string Fetched(const std::string& name) const {
    return IsRejected(name) ? "" : "[" + Normalised(FileOf(name)) + "]";
  }

  void EnterByLaunch(const std::string& name) {
    if (name.starts_with("DSM:")) {
      std::string rest = name.substr(4);
      if (rest.starts_with('/')) rest = rest.substr(1);
      if (rest.starts_with('/')) rest = rest.substr(1);
      directory_ = rest.substr(0, rest.find('/') + 1);  // empty without a slash
      return;
    }
    const std::size_t last = name.rfind('/');
    if (last == std::string::npos || last <= 1) return;
    std::size_t first = name.find('/') + 1;
    if (name[first] == '/') ++first;
    directory_ = first <= last ? name.substr(first, last + 1 - first) : "";
  }

  void EnterBySpawn(const std::string& name) {
    const std::size_t last = name.rfind('/');
    if (last != std::string::npos && last > 1) directory_ = name.substr(2, last - 2);
  }

  std::string directory_;
  int waiting_ = 0;  // the applications that spawned another one
};

}  // namespace korvel::test
