// One run of the engine: starts it, carries out the script, takes the last picture, and waits until
// the engine has closed. Everything runs on the thread that created the session, which also
// dispatches its messages.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "player/engine_library.h"
#include "player/options.h"
#include "player/screenshot.h"
#include "player/script.h"

namespace player {

class Session {
 public:
  explicit Session(const EngineLibrary& engine) : engine_(engine) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // Runs from start to close. Returns 0, or the status to exit with after a message. Without a
  // screenshot and without a script that exits, the run lasts until the engine window is closed.
  [[nodiscard]] int Run(MHEG5Host& host, const std::vector<Step>& steps, const Options& options);

 private:
  template <typename Condition> bool PumpUntil(unsigned limitMs, Condition isMet);
  void Pump(unsigned milliseconds);
  void TakeMessages();
  bool RunSteps(const std::vector<Step>& steps);
  template <typename Condition> void Await(const std::string& wanted, Condition hasCome);
  template <typename Condition> void AwaitFinalPicture(const std::string& wanted, Condition isMet);
  void CatchPicture(const Pixel& pixel);
  void WipeWindow() const;
  bool TakePicture(const std::filesystem::path& file);
  bool WritePicture(const std::filesystem::path& file);
  void PressKey(unsigned virtualKey) const;
  bool Close();

  const EngineLibrary& engine_;
  PictureWriter pictures_;
  Picture picture_;  // the last one that was examined
  HWND hostWindow_ = nullptr;
  HWND engineWindow_ = nullptr;
  unsigned limitMs_ = 0;
  bool isEngineClosed_ = false;
  bool isCloseWanted_ = false;
  bool isLost_ = false;  // a step has timed out, so the run has failed
};

}  // namespace player
