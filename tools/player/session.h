// One run of the engine: starts it, performs the steps of the script, takes the last picture, and
// waits until the engine has closed. Everything runs on the thread that created the session, which
// also dispatches its messages.
#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "mheg/script.h"
#include "mheg/watch.h"
#include "player/broadcast.h"
#include "player/engine_library.h"
#include "player/options.h"
#include "player/picture_series.h"
#include "player/recording.h"
#include "player/screenshot.h"
#include "player/stillness.h"

namespace player {

class Session {
 public:
  Session(const EngineLibrary& engine, const Options& options)
      : engine_(engine), options_(options) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // Starts the engine, runs, and closes it. Returns 0, or reports an error and returns the exit
  // status. Without a screenshot and without a script, the run lasts until the engine window is
  // closed or the folder has been loaded again. With a script that does not exit, it also ends when
  // nothing can happen any more.
  [[nodiscard]] int Run(MHEG5Host& host, const std::vector<mheg::Step>& steps);

  // The files for the next session; null if the folder has not been loaded again.
  [[nodiscard]] Files TakeReloaded() { return std::move(reloaded_); }

 private:
  template <typename Condition> bool PumpUntil(unsigned limitMs, Condition isMet);
  void Pump(unsigned milliseconds);
  void TakeMessages();
  void Observe();
  void StartToRecord();
  bool EndRecords();
  bool RunSteps(const std::vector<mheg::Step>& steps);
  template <typename Condition> void Await(const std::string& wanted, Condition hasCome);
  template <typename Condition> void AwaitFinalPicture(const std::string& wanted, Condition isMet);
  bool IsPictureFinal(Stillness& stillness);
  void CatchPicture(const mheg::Pixel& pixel);
  void RunUntilEnd(bool isEndingWhenIdle);
  bool IsReloadWanted();
  void WipeWindow() const;
  bool TakePicture(const std::filesystem::path& file);
  bool WritePicture(const std::filesystem::path& file);
  void PressKey(unsigned virtualKey) const;
  bool Close();

  const EngineLibrary& engine_;
  const Options& options_;
  Files reloaded_;
  std::optional<mheg::Watch> folder_;  // watched for changes
  std::ofstream record_;
  std::optional<Recording> recording_;
  std::optional<PictureSeries> series_;
  PictureWriter pictures_;
  Picture picture_;  // the last one that was examined
  HWND hostWindow_ = nullptr;
  HWND engineWindow_ = nullptr;
  bool isEngineClosed_ = false;
  bool isCloseWanted_ = false;
  bool hasFailed_ = false;  // a step has timed out, or the folder cannot be watched
};

}  // namespace player
