// Nodes are numbered, because names may contain any character and several carousels may have the
// same names.
#include "mheg/graph/graph.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>
#include <system_error>

#include "mheg/batch.h"
#include "mheg/check/carousel.h"
#include "mheg/check/finding.h"
#include "mheg/check/walk.h"
#include "mheg/graph/causes.h"
#include "mheg/report_words.h"
#include "mheg/write_file.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;
using namespace korvel;

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

// The files that a group shows or plays.
class FileCollector : public GroupVisitor {
 public:
  void VisitContentPath(const OctetString& path) override { files.emplace(path.View()); }
  std::set<std::string> files;
};

// Appends the graph of one carousel to `text`.
class CarouselGraph {
 public:
  CarouselGraph(const Carousel& carousel, std::string& text) : carousel_(carousel), text_(text) {}

  // `nodeCount` is the number of nodes written so far, of all carousels.
  void Write(std::size_t& nodeCount) {
    nodeCount_ = nodeCount;
    for (std::size_t i = 0; i < carousel_.Size(); ++i) {
      const CheckedGroup& group = carousel_.At(i);
      if (!group.isChecked || !group.file.group) continue;
      const bool isApplication = korvel::IsApplication(group.file.group);
      nodes_[&group] = AddNode(group.Name(), isApplication ? "shape=oval style=bold" : "shape=box");
    }
    for (const auto& [group, node] : nodes_) actions_[group] = ActionsOf(*group);
    for (std::size_t i = 0; i < carousel_.Size(); ++i) {
      if (nodes_.contains(&carousel_.At(i))) AddEdges(carousel_.At(i));
    }
    nodeCount = nodeCount_;
  }

 private:
  std::string AddNode(std::string_view label, const char* attributes) {
    std::string name = "n" + std::to_string(nodeCount_++);
    text_ += "  " + name + " [label=" + Quoted(label) + " " + attributes + "]\n";
    return name;
  }
  void AddEdge(const std::string& from, const std::string& to, const std::string& attributes) {
    text_.append("  ").append(from).append(" -> ").append(to);
    text_.append(" [").append(attributes).append("]\n");
  }
  // The node for anything that is not a group of the carousel. Adds it if it is new.
  const std::string& OtherNode(const std::string& label, const char* attributes) {
    std::string& node = others_[label];
    if (node.empty()) node = AddNode(label, attributes);
    return node;
  }

  // The actions among which the causes of a group's actions are searched: those of the group and of
  // its application.
  std::vector<HeldAction> PossibleCauses(const CheckedGroup& group) const {
    std::vector<HeldAction> actions = actions_.at(&group);
    const CheckedGroup* application = carousel_.ApplicationOf(group);
    const auto ofApplication = actions_.find(application);
    const bool isOther = application != &group && ofApplication != actions_.end();
    if (isOther) {
      actions.insert(actions.end(), ofApplication->second.begin(), ofApplication->second.end());
    }
    return actions;
  }

  std::string TargetOf(const CheckedGroup& group, const ElementaryAction& action) {
    const ObjectReference& target = action.Target.Reference;
    if (action.Target.Kind != ValueKind::ObjectReference) {
      return OtherNode("variable " + std::to_string(target.Number), "shape=diamond");
    }
    const std::string_view name = target.GroupIdentifier.View();
    const auto node = nodes_.find(carousel_.Find(group, name));
    return node == nodes_.end() ? OtherNode(std::string(name), "shape=box style=dotted")
                                : node->second;
  }

  void AddEdges(const CheckedGroup& group) {
    const std::string& node = nodes_.at(&group);
    const std::vector<HeldAction> possibleCauses = PossibleCauses(group);
    Causes causes(carousel_, possibleCauses);
    std::map<std::string, std::set<std::string>> labels;  // by target
    for (const HeldAction& held : actions_.at(&group)) {
      if (!LeadsToGroup(ActionOf(*held.action))) continue;
      labels[TargetOf(group, *held.action)].merge(causes.Of(held));
    }
    for (const auto& [target, words] : labels) {
      AddEdge(node, target, "label=" + Quoted(Joined(words, ", ")));
    }
    FileCollector collector;
    Walk(group.Group(), collector);
    for (const std::string& file : collector.files) {
      AddEdge(node, OtherNode(file, "shape=note"), "style=dashed arrowhead=none");
    }
  }

  const Carousel& carousel_;
  std::string& text_;
  std::size_t nodeCount_ = 0;
  std::map<const CheckedGroup*, std::string> nodes_;
  std::map<std::string, std::string> others_;
  std::map<const CheckedGroup*, std::vector<HeldAction>> actions_;
};

// Finds the carousels and reads all their groups. Adds the errors of the groups to draw.
std::vector<Carousel> Load(const std::vector<fs::path>& paths, Messages& messages) {
  Findings findings;
  std::vector<Carousel> carousels = FindCarousels(paths, findings);
  for (const Finding& finding : findings) messages.push_back(finding.message);
  for (Carousel& carousel : carousels) {
    RunBatch(carousel.Size(), 0, [&](std::size_t i) { carousel.Load(i); });
    for (std::size_t i = 0; i < carousel.Size(); ++i) {
      const CheckedGroup& group = carousel.At(i);
      if (!group.isChecked) continue;
      messages.insert(messages.end(), group.file.messages.begin(), group.file.messages.end());
    }
  }
  return carousels;
}

std::string GraphOf(const std::vector<Carousel>& carousels) {
  std::string text = "digraph carousel {\n  rankdir=LR\n"
                     "  node [fontname=\"sans-serif\"]\n"
                     "  edge [fontname=\"sans-serif\" fontsize=11]\n";
  std::size_t nodeCount = 0;
  for (const Carousel& carousel : carousels) CarouselGraph(carousel, text).Write(nodeCount);
  return text + "}\n";
}

// The picture that Graphviz draws of a graph, as SVG; empty if that fails. Graphviz reports errors
// itself. It runs in a temporary folder, so that its command contains no path, which might need
// quotes.
std::string Draw(const std::string& graph) {
  std::error_code problem;
  const fs::path before = fs::current_path(problem);
  const std::string name = "mheg-" + std::to_string(std::random_device()());
  const fs::path folder = fs::temp_directory_path(problem) / name;
  fs::create_directory(folder, problem);
  fs::current_path(folder, problem);
  std::string svg;
  if (!problem && WriteFile("graph.dot", graph) &&
      std::system("dot -Tsvg -o graph.svg graph.dot") == 0) {
    std::ifstream stream("graph.svg", std::ios::binary);
    svg.assign(std::istreambuf_iterator<char>(stream), {});
  }
  fs::current_path(before, problem);
  fs::remove_all(folder, problem);
  return svg;
}

}  // namespace

bool PrintGraph(const std::vector<fs::path>& paths, GraphForm form, const fs::path& output) {
  Messages messages;
  std::string graph = GraphOf(Load(paths, messages));
  Print(messages, stderr);
  if (form == GraphForm::Svg) graph = Draw(graph);
  if (graph.empty()) {
    std::fputs("mheg: SVG needs the program dot of Graphviz, which failed or was not found; "
               "--format=dot does not\n",
               stderr);
    return false;
  }
  if (output.empty()) {
    std::fputs(graph.c_str(), stdout);
  } else if (!WriteFile(output, graph)) {
    Print({{output, "cannot be written"}}, stderr);
    return false;
  }
  return messages.empty();
}

}  // namespace mheg
