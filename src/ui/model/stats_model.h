#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "store/settings.h"
#include "ui/model/control.h"
#include "ui/model/platform.h"

namespace bq {

// frmConfirmClearStats, the question asked before statistics are cleared. StatsModel owns it,
// opens it and hears its answer. Controls in order: "Caption" (the window's title, listed like a
// control so that front ends and the driver treat it alike), lblConfirm, cmdYes, cmdNo.
class ConfirmClearModel : public WindowModel {
 public:
  ConfirmClearModel(Platform& platform, std::function<void(bool yes)> on_answer);

  bool IsOpen() const { return open_; }
  // "cmdYes" or "cmdNo": the dialog closes, then the owner hears the answer. False when the
  // dialog is not open or the control is unknown, hidden or disabled.
  bool Click(std::string_view control);
  // Closing by the window frame answers No.
  bool Close();

  void Open(const std::string& question);

 private:
  void Answer(bool yes);

  Platform& platform_;
  std::function<void(bool)> on_answer_;
  bool open_ = false;
  Control caption_, lbl_confirm_, cmd_yes_, cmd_no_;
};

// frmStats: the results against one kind of opponent, from a copy of both statistics sections
// read from the settings file when the window opens. Controls in order: "Caption" (the window's
// caption, as above), the row and column headings, lblWins(1..8), lblLosses(1..8), lblTies(1..8),
// lblWinsPct(1..7), lblLossesPct(1..7), lblTiesPct(1..7), the streak labels, then
// cmdShowOtherStats, cmdClearStats, cmdCloseStats. Row 8 of the counts is the Record row.
// Ours after them, shown beside the computer's figures only: lblClassic and lblExpert (headings),
// lblExpertWLT, lblExpertWins(1..8), lblExpertLosses(1..8), lblExpertTies(1..8) and
// lblExpertWStreak, lblExpertLStreak, lblExpertTStreak: the games against the Expert. Clearing
// the computer's statistics clears the Expert's too.
class StatsModel : public WindowModel {
 public:
  explicit StatsModel(Platform& platform);

  // Reads the file afresh and shows the statistics of the current opponent. Opening it again while
  // it is open reads and shows again. Does nothing while the confirmation dialog is up.
  void Open(const std::string& settings_path, bool vs_computer);
  bool IsOpen() const { return open_; }

  // "cmdShowOtherStats", "cmdClearStats", "cmdCloseStats"; other visible controls take a click
  // without effect. False when the window is closed, the confirmation dialog is up (it is modal),
  // or the control is unknown, hidden or disabled.
  bool Click(std::string_view control);
  // By the window frame: as cmdCloseStats.
  bool Close();

  int ShownKind() const { return kind_; }  // kVsComputer or kVsHumans
  const AllStats& Stats() const { return stats_; }
  ConfirmClearModel& Confirm() { return confirm_; }
  const ConfirmClearModel& Confirm() const { return confirm_; }

 private:
  void SetKindCaptions();
  void Display();
  void OnClearAnswer(bool yes);

  Platform& platform_;
  std::string path_;
  bool open_ = false;
  int kind_ = kVsComputer;
  AllStats stats_{};

  Control caption_;
  Control lbl_results_, lbl_no_play_options_, lbl_stackem_, lbl_backem_, lbl_switchem_,
      lbl_smackem_, lbl_takem_, lbl_all_games_;
  Control lbl_wlt1_, lbl_wlt2_, lbl_wlt3_;
  std::array<Control, 9> lbl_wins_, lbl_losses_, lbl_ties_;              // 1..8
  std::array<Control, 8> lbl_wins_pct_, lbl_losses_pct_, lbl_ties_pct_;  // 1..7
  Control lbl_streaks_, lbl_current_, lbl_consecutive_;
  Control lbl_w_streak_, lbl_l_streak_, lbl_t_streak_;
  Control cmd_show_other_stats_, cmd_clear_stats_, cmd_close_stats_;
  Control lbl_classic_, lbl_expert_, lbl_expert_wlt_;
  std::array<Control, 9> lbl_expert_wins_, lbl_expert_losses_, lbl_expert_ties_;  // 1..8
  Control lbl_expert_w_streak_, lbl_expert_l_streak_, lbl_expert_t_streak_;

  ConfirmClearModel confirm_;
};

}  // namespace bq
