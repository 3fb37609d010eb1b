// `mheg graph`: nodes, edges and their labels, and the picture that Graphviz draws of them.
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

class GraphTool : public Tool {
 protected:
  void SetUp() override {
    Write("a.mheg", R"({:Application ("~/a" 0)
  :OnStartUp (:TransitionTo(("~/menu" 0)))
  :Items ({:BooleanVar 1 :OrigValue FALSE})
})");
  }
  // The lines of the nodes and edges.
  [[nodiscard]] std::string Graph() const {
    const ToolOutcome run = Call("graph .");
    EXPECT_EQ(run.status, 0);
    const std::string start = "digraph carousel {\n  rankdir=LR\n"
                              "  node [fontname=\"sans-serif\"]\n"
                              "  edge [fontname=\"sans-serif\" fontsize=11]\n";
    EXPECT_EQ(run.output.substr(0, start.size()), start);
    EXPECT_EQ(run.output.substr(run.output.size() - 2), "}\n");
    return run.output.substr(start.size(), run.output.size() - start.size() - 2);
  }
  // A scene with these items.
  static std::string Scene(const std::string& name, const std::string& items) {
    return "{:Scene (\"~/" + name + "\" 0)\n :Items (\n" + items + ")\n :SceneCS 720 576}\n";
  }
  static std::string Link(int number, const std::string& event, const std::string& actions) {
    return "{:Link " + std::to_string(number) + " " + event + " :LinkEffect (" + actions + ")}\n";
  }
};

TEST_F(GraphTool, edges_are_labelled_with_keys_and_events) {
  Write("menu.mheg",
        Scene("menu", Link(1, ":EventSource 0 :EventType UserInput :EventData 100",
                           ":TransitionTo((\"~/sub/page\" 0))") +
                          Link(2, ":EventSource 0 :EventType UserInput :EventData 15",
                               ":TransitionTo((\"~/sub/page\" 0))") +
                          Link(3, ":EventSource 0 :EventType UserInput", ":Launch((\"~/a\" 0))")));
  fs::create_directory(folder_ / "sub");
  Write("sub/page.mheg",
        Scene("sub/page", Link(1, ":EventSource 0 :EventType TimerFired :EventData 4",
                               ":Spawn((\"~/lost\" 0))")));
  EXPECT_EQ(Graph(), R"(  n0 [label="~/a" shape=oval style=bold]
  n1 [label="~/menu" shape=box]
  n2 [label="~/sub/page" shape=box]
  n0 -> n1 [label="start"]
  n1 -> n0 [label="any key"]
  n1 -> n2 [label="OK, Red"]
  n3 [label="~/lost" shape=box style=dotted]
  n2 -> n3 [label="TimerFired 4"]
)");
}

TEST_F(GraphTool, events_that_actions_cause_are_traced_back_to_keys) {
  const std::string key = ":EventSource 0 :EventType UserInput :EventData ";
  const std::string test = " :EventType TestEvent :EventData TRUE";
  Write("menu.mheg",
        Scene("menu",
              Link(1, key + "1", ":TestVariable((\"~/a\" 1) 1 :GBoolean TRUE)") +
                  Link(2, ":EventSource (\"~/a\" 1)" + test, ":Run(5)") +
                  Link(3, ":EventSource 5 :EventType IsRunning", ":Move(6 1)") +
                  Link(4, key + "2", ":Move(6 2)") + "{:Rectangle 5 :OrigBoxSize 1 1}\n" +
                  "{:TokenGroup 6 :TokenGroupItems ((5 :ActionSlots "
                  "((:TransitionTo((\"~/menu\" 0))))))}\n" +
                  Link(7, ":EventSource 6 :EventType TokenMovedTo :EventData 1",
                       ":CallActionSlot(6 1)") +
                  Link(8, ":EventSource 5 :EventType IsStopped", ":TransitionTo((\"~/a\" 0))")));
  EXPECT_EQ(Graph(), R"(  n0 [label="~/a" shape=oval style=bold]
  n1 [label="~/menu" shape=box]
  n0 -> n1 [label="start"]
  n1 -> n0 [label="IsStopped"]
  n1 -> n1 [label="Down, Up"]
)");
}

TEST_F(GraphTool, tracing_circular_causes_ends) {
  const std::string event = ":EventSource 5 :EventType TestEvent :EventData ";
  Write("menu.mheg",
        Scene("menu", "{:BooleanVar 5 :OrigValue TRUE}\n" +
                          Link(1, event + "TRUE", ":TestVariable(5 1 :GBoolean TRUE)") +
                          Link(2, event + "FALSE", ":TransitionTo((\"~/a\" 0))")));
  EXPECT_NE(Graph().find("  n1 -> n0 [label=\"\"]\n"), std::string::npos) << Graph();
}

TEST_F(GraphTool, content_files_and_variables_as_targets_are_nodes) {
  Write(
      "menu.mheg",
      Scene("menu", "{:Bitmap 1 :OrigBoxSize 1 1 :OrigContent :ContentRef \"~/a \\\"b\\\".png\"}\n"
                    "{:ObjectRefVar 2 :OrigValue :ObjectRef (\"~/menu\" 0)}\n" +
                        Link(3, ":EventSource 0 :EventType UserInput :EventData 103",
                             ":TransitionTo(:IndirectRef 2)")));
  EXPECT_EQ(Graph(), R"(  n0 [label="~/a" shape=oval style=bold]
  n1 [label="~/menu" shape=box]
  n0 -> n1 [label="start"]
  n2 [label="variable 2" shape=diamond]
  n1 -> n2 [label="Blue"]
  n3 [label="~/a \"b\".png" shape=note]
  n1 -> n3 [style=dashed arrowhead=none]
)");
}

TEST_F(GraphTool, graphviz_draws_the_graph) {
  Write("menu.mheg", Scene("menu", ""));
  const ToolOutcome run = Call("graph . --format svg -o graph.svg");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
  const std::string svg = File("graph.svg");
  EXPECT_EQ(svg.substr(0, 5), "<?xml");
  EXPECT_NE(svg.find(">~/menu</text>"), std::string::npos);
  EXPECT_NE(svg.find(">start</text>"), std::string::npos);
  EXPECT_EQ(Call("graph . --format=svg").output, svg);
  const std::string temporary = "TMPDIR='" + folder_.string() + "/a b' ";
  fs::create_directory(folder_ / "a b");
  EXPECT_EQ(Call("graph . --format=svg", temporary).output, svg);
  EXPECT_TRUE(fs::is_empty(folder_ / "a b")) << "temporary files are removed";
}

TEST_F(GraphTool, svg_without_graphviz_fails_and_keeps_the_old_file) {
  Write("graph.svg", "old");
  // A program "dot" that fails for all arguments except -V.
  fs::create_directory(folder_ / "bin");
  Write("bin/dot", "#!/bin/sh\ntest $1 = -V\n");
  fs::permissions(folder_ / "bin/dot", fs::perms::owner_all);
  for (const std::string& path : {std::string("/nowhere"), (folder_ / "bin").string()}) {
    const ToolOutcome run = Call("graph . --format svg -o graph.svg", "PATH='" + path + "' ");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.output.find("Graphviz"), std::string::npos) << run.output;
    EXPECT_EQ(File("graph.svg"), "old");
  }
}

TEST_F(GraphTool, unreadable_groups_are_reported_and_the_others_are_drawn) {
  Write("menu.mheg", "{");
  const ToolOutcome run = Call("graph . 2>/dev/null");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("label=\"~/a\""), std::string::npos);
  EXPECT_NE(Call("graph . >/dev/null").output.find("menu.mheg:1:2: "), std::string::npos);
}

TEST_F(GraphTool, a_graph_that_cannot_be_written_is_an_error) {
  EXPECT_EQ(Call("graph a.mheg -o no/such/folder").status, 1);
  EXPECT_EQ(Call("graph a.mheg >/dev/full").status, 1);
  EXPECT_EQ(Call("graph a.mheg --format png").status, 2);
}

}  // namespace
}  // namespace mheg
