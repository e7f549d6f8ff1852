#include "ui/model/stats_model.h"

#include <initializer_list>
#include <utility>

#include "store/statistics.h"

namespace bq {
namespace {

constexpr char kStatsWindow[] = "frmStats";
constexpr char kConfirmWindow[] = "frmConfirmClearStats";
constexpr char kBackTooltip[] = "Click here to return to the game.";

bool Clickable(const WindowModel& window, std::string_view name) {
  const Control* control = window.Find(name);
  return control && control->visible && control->enabled;
}

Control Label(std::string caption) {
  Control c;
  c.caption = std::move(caption);
  return c;
}

std::string_view KindName(int kind) {
  return kind == kVsComputer ? "computer" : "humans";
}

// Appends rather than prepends: GCC 12 gives a false -Wrestrict on "text" + std::string&&.
std::string Join(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (std::string_view part : parts) text += part;
  return text;
}

}  // namespace

ConfirmClearModel::ConfirmClearModel(Platform& platform, std::function<void(bool)> on_answer)
    : WindowModel(kConfirmWindow), platform_(platform), on_answer_(std::move(on_answer)) {
  caption_.caption = "Confirm Clearing Statistics";
  cmd_yes_.caption = "Yes";
  cmd_no_.caption = "No";
  Register("Caption", caption_);
  Register("lblConfirm", lbl_confirm_);
  Register("cmdYes", cmd_yes_);
  Register("cmdNo", cmd_no_);
}

void ConfirmClearModel::Open(const std::string& question) {
  lbl_confirm_.caption = question;
  open_ = true;
  SetFocus("cmdNo");  // a stray Enter must not wipe anything
  platform_.WindowOpened(kConfirmWindow);
}

bool ConfirmClearModel::Click(std::string_view control) {
  if (!open_ || !Clickable(*this, control)) return false;
  if (control == "cmdYes") Answer(true);
  if (control == "cmdNo") Answer(false);
  return true;
}

bool ConfirmClearModel::Close() {
  if (!open_) return false;
  Answer(false);
  return true;
}

void ConfirmClearModel::Answer(bool yes) {
  open_ = false;
  platform_.WindowClosed(kConfirmWindow);
  if (on_answer_) on_answer_(yes);
}

StatsModel::StatsModel(Platform& platform)
    : WindowModel(kStatsWindow),
      platform_(platform),
      caption_(Label("Your Statistics")),
      lbl_results_(Label("Results")),
      lbl_no_play_options_(Label("No Play Options")),
      lbl_stackem_(Label("Stackem")),
      lbl_backem_(Label("Backem")),
      lbl_switchem_(Label("Switchem")),
      lbl_smackem_(Label("Smackem")),
      lbl_takem_(Label("Takem")),
      lbl_all_games_(Label("All Games")),
      lbl_wlt1_(Label("Wins       Losses      Ties")),
      lbl_wlt2_(Label("Wins       Losses      Ties")),
      lbl_wlt3_(Label("Wins       Losses      Ties")),
      lbl_streaks_(Label("Streaks")),
      lbl_current_(Label("Current")),
      lbl_consecutive_(Label("Record")),
      lbl_classic_(Label("Against the Classic computer")),
      lbl_expert_(Label("Against the Expert")),
      lbl_expert_wlt_(Label("Won       Lost       Tied")),
      confirm_(platform, [this](bool yes) { OnClearAnswer(yes); }) {
  cmd_clear_stats_.caption = "  Clear   statistics ";
  cmd_clear_stats_.tooltip = "Click here to reset all statistics.";
  cmd_close_stats_.caption = " Close  statistics";
  cmd_close_stats_.tooltip = kBackTooltip;
  // The close button's tooltip on purpose: an old slip that players know.
  cmd_show_other_stats_.tooltip = kBackTooltip;

  Register("Caption", caption_);
  Register("lblResults", lbl_results_);
  Register("lblNoPlayOptions", lbl_no_play_options_);
  Register("lblStackem", lbl_stackem_);
  Register("lblBackem", lbl_backem_);
  Register("lblSwitchem", lbl_switchem_);
  Register("lblSmackem", lbl_smackem_);
  Register("lblTakem", lbl_takem_);
  Register("lblAllGames", lbl_all_games_);
  Register("lblWLT1", lbl_wlt1_);
  Register("lblWLT2", lbl_wlt2_);
  Register("lblWLT3", lbl_wlt3_);
  RegisterArray("lblWins", lbl_wins_, 1, 8);
  RegisterArray("lblLosses", lbl_losses_, 1, 8);
  RegisterArray("lblTies", lbl_ties_, 1, 8);
  RegisterArray("lblWinsPct", lbl_wins_pct_, 1, 7);
  RegisterArray("lblLossesPct", lbl_losses_pct_, 1, 7);
  RegisterArray("lblTiesPct", lbl_ties_pct_, 1, 7);
  Register("lblStreaks", lbl_streaks_);
  Register("lblCurrent", lbl_current_);
  Register("lblConsecutive", lbl_consecutive_);
  Register("lblWStreak", lbl_w_streak_);
  Register("lblLStreak", lbl_l_streak_);
  Register("lblTStreak", lbl_t_streak_);
  Register("cmdShowOtherStats", cmd_show_other_stats_);
  Register("cmdClearStats", cmd_clear_stats_);
  Register("cmdCloseStats", cmd_close_stats_);
  Register("lblClassic", lbl_classic_);
  Register("lblExpert", lbl_expert_);
  Register("lblExpertWLT", lbl_expert_wlt_);
  RegisterArray("lblExpertWins", lbl_expert_wins_, 1, 8);
  RegisterArray("lblExpertLosses", lbl_expert_losses_, 1, 8);
  RegisterArray("lblExpertTies", lbl_expert_ties_, 1, 8);
  Register("lblExpertWStreak", lbl_expert_w_streak_);
  Register("lblExpertLStreak", lbl_expert_l_streak_);
  Register("lblExpertTStreak", lbl_expert_t_streak_);

  SetKindCaptions();
  caption_.caption = "Your Statistics";  // until it opens for a kind
  Display();
}

void StatsModel::Open(const std::string& settings_path, bool vs_computer) {
  if (confirm_.IsOpen()) return;
  path_ = settings_path;
  kind_ = vs_computer ? kVsComputer : kVsHumans;
  SetKindCaptions();
  stats_ = LoadSettings(path_).stats;
  Display();
  SetFocus("cmdCloseStats");
  if (!open_) {
    open_ = true;
    platform_.WindowOpened(kStatsWindow);
  }
}

bool StatsModel::Click(std::string_view control) {
  if (!open_ || confirm_.IsOpen() || !Clickable(*this, control)) return false;
  if (control == "cmdShowOtherStats") {
    kind_ = kind_ == kVsComputer ? kVsHumans : kVsComputer;
    SetKindCaptions();
    Display();
    SetFocus("cmdShowOtherStats");
  } else if (control == "cmdClearStats") {
    SetFocus("cmdClearStats");
    confirm_.Open(Join({"Do you really want to clear your statistics vs ", KindName(kind_), "?"}));
  } else if (control == "cmdCloseStats") {
    Close();
  }
  return true;
}

bool StatsModel::Close() {
  if (!open_ || confirm_.IsOpen()) return false;
  open_ = false;
  platform_.WindowClosed(kStatsWindow);
  return true;
}

void StatsModel::SetKindCaptions() {
  caption_.caption = Join({"Your statistics vs ", KindName(kind_)});
  cmd_show_other_stats_.caption =
      Join({"Show statistics vs ", KindName(kind_ == kVsComputer ? kVsHumans : kVsComputer)});
}

void StatsModel::Display() {
  const GameStats& g = stats_[static_cast<size_t>(kind_)];
  const GameStats& e = stats_[kVsExpert];
  const bool expert = kind_ == kVsComputer;
  for (Control* c : {&lbl_classic_, &lbl_expert_, &lbl_expert_wlt_, &lbl_expert_w_streak_,
                     &lbl_expert_l_streak_, &lbl_expert_t_streak_})
    c->visible = expert;
  for (size_t i = 1; i <= 8; ++i) {
    lbl_wins_[i].caption = std::to_string(g.wins[i]);
    lbl_losses_[i].caption = std::to_string(g.losses[i]);
    lbl_ties_[i].caption = std::to_string(g.ties[i]);
    lbl_expert_wins_[i].caption = std::to_string(e.wins[i]);
    lbl_expert_losses_[i].caption = std::to_string(e.losses[i]);
    lbl_expert_ties_[i].caption = std::to_string(e.ties[i]);
    lbl_expert_wins_[i].visible = lbl_expert_losses_[i].visible = lbl_expert_ties_[i].visible =
        expert;
  }
  for (size_t i = 1; i <= 7; ++i) {
    // Rounded to single precision first, as the window's copy keeps them.
    const auto share = [i](const GameStats& s, int n) {
      const int total = s.wins[i] + s.losses[i] + s.ties[i];
      return total == 0 ? 0.f : static_cast<float>(static_cast<double>(n) / total);
    };
    lbl_wins_pct_[i].caption = FormatPercent(share(g, g.wins[i]));
    lbl_losses_pct_[i].caption = FormatPercent(share(g, g.losses[i]));
    lbl_ties_pct_[i].caption = FormatPercent(share(g, g.ties[i]));
  }
  lbl_w_streak_.caption = std::to_string(g.w_streak);
  lbl_l_streak_.caption = std::to_string(g.l_streak);
  lbl_t_streak_.caption = std::to_string(g.t_streak);
  lbl_expert_w_streak_.caption = std::to_string(e.w_streak);
  lbl_expert_l_streak_.caption = std::to_string(e.l_streak);
  lbl_expert_t_streak_.caption = std::to_string(e.t_streak);
}

void StatsModel::OnClearAnswer(bool yes) {
  if (!yes) return;
  AllStats cleared = stats_;
  cleared[static_cast<size_t>(kind_)] = GameStats{};
  if (kind_ == kVsComputer) cleared[kVsExpert] = GameStats{};  // both computers' games
  // The file is the authority: the window shows zeros only once they are stored.
  if (!SaveStatistics(path_, cleared)) {
    platform_.MessageBox("The statistics could not be saved to " + path_ + ".");
    return;
  }
  stats_ = cleared;
  Display();
}

}  // namespace bq
