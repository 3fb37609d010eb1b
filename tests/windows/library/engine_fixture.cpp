// Compiles the scenes, and starts and closes the engine.
#include "windows/library/engine_fixture.h"

#include "support/text_content.h"

namespace korvel::test {

Engine::~Engine() { Close(); }

void Engine::ServeScene(const std::string& items) {
  host.Serve("a", CompileText(R"({:Application ("~/a" 0) :OnStartUp (:TransitionTo(("~/s" 0)))})"));
  ServeScene("s", items);
}

void Engine::ServeScene(const std::string& name, const std::string& items) {
  host.Serve(name, CompileScene(name, items));
}

std::string Engine::CompileScene(const std::string& name, const std::string& items) {
  const std::string list = items.empty() ? "" : ":Items (" + items + ")";
  return CompileText("{:Scene (\"~/" + name + "\" 0) " + list +
                     " :InputEventReg 1 :SceneCS 720 576}");
}

void Engine::Start() {
  ASSERT_EQ(library.run(&host, window.Handle()), 0U);
  WaitForWindow();
}

void Engine::WaitForWindow() {
  ASSERT_TRUE(WaitUntil([this] {
    engineWindow = FindEngineWindow();
    return engineWindow != nullptr && IsWindowVisible(engineWindow) != 0;
  }));
}

void Engine::Close() {
  EXPECT_TRUE(WaitUntil([this] {
    library.exit();
    return FindEngineWindow() == nullptr;
  }));
  library.waitForClose();
  EXPECT_EQ(host.HeldReferences(), 0);
  EXPECT_EQ(host.HeldBuffers(), 0);
  EXPECT_FALSE(host.IsMisused());
  EXPECT_EQ(host.CountOf("HostOwn") + host.CountOf("QueryInterface"), 0);
}

void Engine::Post(UINT message, WPARAM wParam) const {
  ASSERT_NE(PostMessageA(engineWindow, message, wParam, 0), 0);
}

void Engine::WaitForColour(int x, int y, COLORREF colour) const {
  ASSERT_TRUE(WaitUntil([&] { return Shown(x, y) == colour; }))
      << "the colour is " << std::hex << Shown(x, y) << " at " << std::dec << x << ", " << y;
}

void Engine::WaitForRead(const std::string& path, int count) const {
  ASSERT_TRUE(WaitUntil([&] { return ReadsOf(path) >= count; })) << path;
}

}  // namespace korvel::test
