#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ai/chosen_seat.h"
#include "ai/seat_view.h"
#include "engine/rules.h"
#include "net/message.h"
#include "store/settings.h"
#include "store/statistics.h"
#include "ui/model/control.h"
#include "ui/model/hint_model.h"
#include "ui/model/platform.h"
#include "ui/model/prompt_line.h"
#include "ui/model/remote_play.h"
#include "ui/model/undo_point.h"

namespace bq {

using SlotControls = std::array<Control, kMaxStackSize + 1>;  // [1..20]

// The game window: the cards, the rules of a turn and every control that shows them. All
// behaviour is here, driven by named events; the Qt window and the headless driver only draw it
// and forward clicks.
class GameModel : public WindowModel {
 public:
  GameModel(Platform& platform, std::string settings_path);

  // The window's loading: settings, the narrow-screen rule, the game data, the option setters.
  void Load();

  // Events. Each returns false when the control did not react (hidden, disabled, unknown, or a
  // click that does not belong to the turn).
  bool Click(std::string_view name);
  bool RightClick(std::string_view name);
  bool ClickBackground(bool ctrl_alt);

  // Every event from outside runs between these two (Click, RightClick, ClickBackground,
  // SetField and the Announce entry points do it themselves; a new entry point must too). The
  // first clears what the last event had to tell; the second writes lblPrompt and the steady
  // highlights from the state the event left. Nested pairs count as one.
  void BeginEvent();
  void EndEvent();
  // Words for this event's prompt line, put before what the player can do now.
  void AddNews(const std::string& text);
  // Draws the eye to a control until the next event (kHighlightBrief: for a moment only).
  void Highlight(Control& c, int kind);
  // Changes whenever brief highlights are set afresh, so a front end can show them again.
  int highlight_serial() const { return highlight_serial_; }
  // The window's frame was closed, or Exit chosen: runs the exit sequence.
  void Exit();

  bool exited() const { return exited_; }
  // Set by the Statistics and About commands; the application opens the window.
  bool TakeStatsRequest();
  bool TakeAboutRequest();
  // Set when the opponent's invitation arrives, and by the Setup command; the application opens
  // frmInvitation or frmCommunicate.
  bool TakeInvitationRequest();
  bool TakeCommunicateRequest();
  // Set when the opponent quits or exits before the invitation is answered: the application
  // closes frmInvitation unanswered.
  bool TakeInvitationDismissal();

  // Network play. The link belongs to the front end; without one nothing is sent or received.
  void SetLink(net::Link* link);
  net::Link* link() const { return remote_.link; }
  std::string LocalIP() const;
  // frmCommunicate's Send, with the texts as typed. On a failure the player is told why and
  // false returned.
  bool ConfigureConnection(std::string_view ip_b, std::string_view port_b, std::string_view port_a);
  // frmCommunicate opened: panel 1 says so until a Send succeeds.
  void ShowNoOpponentInformation();
  // frmInvitation's Yes or No.
  void AnswerInvitation(bool yes);
  // A datagram from the opponent.
  void Receive(const std::string& text);
  // A datagram from anyone else: ignored, but the prompt line names the sender, once per sender.
  void Stranger(const std::string& host, int port);
  bool StrangerIsNew(const std::string& host, int port) const;
  // The clock's event, from the front end now and then: once the opponent has been silent for
  // kSilenceMs while this copy waits for them, the prompt line says so. SilenceDue tells whether
  // a Tick would change anything.
  void Tick();
  bool SilenceDue() const;
  static constexpr std::int64_t kSilenceMs = 30000;
  const net::Session& session() const { return remote_.session; }

  // Game values by the driver's names; nullopt for an unknown field.
  std::optional<std::string> GetField(std::string_view field) const;
  // Sets game values between two events (for tests and puzzles). Returns an error text or "".
  std::string SetField(std::string_view field, std::string_view values);

  const GameState& state() const { return g_; }
  const ai::Judgement& judgement() const { return judge_; }
  const std::string& settings_path() const { return settings_path_; }
  // Why the settings file could not be saved, told once per run; empty while saves succeed.
  const std::string& save_notice() const { return save_notice_; }
  bool learn_mode() const { return learn_mode_; }
  bool fast_mode() const { return fast_mode_; }
  bool vs_computer() const { return vs_computer_; }
  // Ours: the computer chosen in the Options menu, and the one playing side B now (chosen when
  // a game against the computer is dealt).
  bool expert_chosen() const { return expert_chosen_; }
  ai::Computer seat_kind() const { return seat_.kind(); }
  bool judgement_shown() const { return judgement_shown_; }
  bool game_running() const { return game_running_; }
  float window_left() const { return window_left_; }
  float window_top() const { return window_top_; }
  void set_window_position(float left_twips, float top_twips) {
    window_left_ = left_twips;
    window_top_ = top_twips;
  }
  int card_popup_slot() const { return popup_slot_; }
  // A game that would be recorded if it were played out: dealt, undecided, not in Learn Mode.
  // Quitting it or leaving the program loses it.
  bool counted_game_running() const {
    return game_running_ && !game_over_ && !learn_mode_ && !undo_.used &&
           remote_.session.phase() != net::Session::Phase::kInviting &&
           !cmdInvitationRejected.visible;
  }
  // Ours, kept in the settings file: whether the window asks before such a game is abandoned.
  bool ask_before_abandoning() const { return ask_before_abandoning_; }
  void set_ask_before_abandoning(bool ask) { ask_before_abandoning_ = ask; }
  // Ours, kept in the settings file: the last connection set up, this run or an earlier one.
  struct Connection {
    std::string opponent_address;
    int opponent_port = 0;  // 0: none yet
    int local_port = 0;
  };
  const Connection& last_connection() const { return last_connection_; }

  // The opponent's special moves arriving from the network: shown and held until the player
  // acknowledges them with cmdSmackemB or cmdTakemB. Positions are brought into 1..StackSize.
  void AnnounceSmackemB(int pos1, int pos2);
  void AnnounceTakemB(int sender_pos, int receiver_pos);

  // Controls, by the names the window and the driver share.
  Control lblStackA, lblStackB, lblDraw, lblDrawPile, lblDiscard, lblDiscardPile;
  Control lblMoveCount, lblMoveCountA, lblMoveCountB;
  SlotControls lblCardA, lblCardB, lblRangeA, lblRangeB, lblGoodBad;
  Control frmPlayOptions, frmOpponent, frmFastMode, frmLearnMode;
  Control chkStackem, chkBackem, chkSwitchem, chkSmackem, chkTakem, chkRandom;
  Control optVsComputer, optVsHuman, cmdSetupRemoteOpponent;
  Control optFastModeOn, optFastModeOff, optLearnModeOn, optLearnModeOff;
  Control cmdNew, cmdQuit, cmdSetupTakemA, cmdSetupTakemB, cmdSetupSmackemA, cmdSetupSmackemB;
  Control cmdPlayA, cmdPlayB, cmdAWins, cmdBWins, cmdCWins, cmdBothWin;
  Control cmdCTakesDiscard, cmdCTakesDraw, cmdCTakesNothing, cmdBackemC;
  Control cmdSwitchemA, cmdSwitchemB, cmdSwitchemC, cmdSmackemA, cmdSmackemB, cmdSmackemC;
  Control cmdTakemA, cmdTakemB, cmdTakemC;
  Control cmdInvitationAccepted, cmdInvitationRejected, cmdInvitationIgnored, cmdQuitReceived,
      cmdExitReceived, cmdClickHere;
  Control mnuFile, mnuFileNewGame, mnuFileQuitGame, mnuFileExit;
  Control mnuOptions, mnuOptionsStackem, mnuOptionsBackem, mnuOptionsSwitchem, mnuOptionsSmackem,
      mnuOptionsTakem, mnuOptionsRandom, mnuVsComputer, mnuVsHuman, mnuSetupRemoteOpponent,
      mnuFastModeOn, mnuFastModeOff, mnuLearnModeOn, mnuLearnModeOff;
  Control mnuOptionsSound;  // ours, at the end of the Options menu: the click sound on or off
  // Ours, after it: which computer plays, a pair checked like option buttons.
  Control mnuComputerClassic, mnuComputerExpert;
  Control mnuStats, mnuHelp, mnuHelpHowToPlay, mnuHelpAbout;
  Control mnuPopupFileNewGame, mnuPopupFileQuitGame, mnuPopupFileExit, mnuPopupStats,
      mnuPopupHelpHowToPlay, mnuPopupHelpAbout;
  Control mnuPopupCardDiscard, mnuPopupCardDraw;
  std::array<Control, 5> StatusBar1;  // panels 1..4
  // Ours: one line under the board saying whose turn it is, what can be done and what the
  // opponent just did.
  Control lblPrompt;
  // Ours too: the Hint command.
  Control mnuHint;
  // Ours: the Edit menu, whose Undo takes back the player's last move and the computer's reply.
  Control mnuEdit, mnuEditUndo;
  // Ours: the moves of this game in words, newest at 1; empty entries are blank.
  static constexpr int kMoveListSize = 20;
  std::array<Control, kMoveListSize + 1> lblMoveList;

 private:
  enum class Selecting { kNone, kSwitchemA, kSmackemA, kTakemA };
  enum class Pending { kNone, kDiscard, kDraw, kNothing, kTakem, kSmackem, kSwitchem, kBackem };

  void RegisterControls();
  bool ClickControl(std::string_view name);
  bool RightClickControl(std::string_view name);
  std::string SetGameValue(std::string_view field, std::string_view values);
  void PlayClick();  // the click sound, unless the player turned it off
  Control& OptionBox(Option o);
  Control& OptionMenu(Option o);
  std::array<bool, 5> CheckedOptions() const;
  bool Checked(Option o) const { return const_cast<GameModel*>(this)->OptionBox(o).value == 1; }
  bool Backem() const { return Checked(kBackem); }
  int N() const { return g_.stack_size; }
  void Prompt(Control& c);  // shown, enabled, focused
  void ShowCardA(int slot);
  void ShowCardB(int slot);  // the label at the slot's display position
  void RefreshMoveCounts();

  // Start-up (game_setup.cpp) and the options panel (game_options_panel.cpp).
  void InitGameData();
  void ApplyStoredOptions(const StoredOptions& o);
  void SetOptionChecked(Option o, bool checked);  // box + menu, then the setter
  void RunOptionSetter(Option o);
  void SetRandomChecked(bool checked);
  void SetRandom();
  void SetVsComputer();
  void SetVsHuman();
  void SetFastMode(bool on);
  void SetLearnMode(bool on);
  void ToggleOpponent();
  void ToggleFastMode();
  void ToggleLearnMode();
  void ChooseComputer(bool expert);
  void RefreshSlotVisibility();
  void RefreshRangeLabels();
  void ResetComputerJudgement();  // marks "0", counts 0, base ranges, brought up to date

  // A game's life (game_setup.cpp); the settings kept (game_options_panel.cpp).
  void NewGame();
  void LockControlsForGame();
  void ShowDeal();
  void EndIfDecided();
  void Ending(Outcome outcome, Control& button);
  void RevealBoard();
  void RecordResult(Outcome outcome);
  void QuitGame();
  Settings CurrentSettings(Settings base) const;
  // A failed save is told once: in the window during play, on standard error only at exit, when
  // the window is going away.
  void SaveOrWarn(const Settings& s, bool exiting);

  // The ordinary turn (game_turn.cpp).
  void StartOfPlay();
  void StartTurnA();
  void StartTurnB();
  void OfferSetupButtons();
  bool CardClickIgnored() const;
  bool PileClickIgnored() const;
  bool ClickDiscardPile();
  bool ClickDrawPile();
  bool ClickCardA(int slot);
  bool ClickCardB(int pos);
  bool CardPopup(bool discard);
  void MoveReady();
  bool MoveChosen() const;  // a pile move or a pass would be made now
  void WithdrawEmptyMove();
  void CompleteMoveA();
  void PlayPileMoveB(const Move& m);
  bool Play(const Move& m);
  void NextTurnUnlessDecided();
  void UnmarkCardsA();
  int MarkedCount(const SlotControls& labels) const;

  // The computer's turn (game_computer.cpp).
  void StartComputerTurn();
  Move ChooseComputerMove();
  void ComputerMove();
  void ReleaseComputerMove();
  void ClearComputerMarks();
  void RefreshGoodBad();
  void RefreshGoodBad(bool reversed);
  void TakeJudgement();  // the display follows the seat's judgement, when it keeps one
  bool ExpertPlaying() const { return vs_computer_ && seat_.kind() == ai::Computer::kExpert; }
  std::string MarkText(int slot) const;  // the Expert keeps no marks: blank

  // Special moves of side A and the receiving side (game_option_moves.cpp).
  void StartSwitchemA();
  void CompleteSwitchemA();
  void SetupSmackemA();
  void SetupTakemA();
  void BeginPick(Selecting kind);
  void FinishPick(Control& prompt, Control& setup, std::initializer_list<int> changed);
  void AbandonPick();
  void CancelSelection();
  void CompleteSmackemA();
  void CompleteTakemA();
  void ApplyHeldB();

  // Remote play: the link (game_network_panel.cpp) and the messages received (game_remote.cpp).
  void SendToOpponent(const net::Message& m);
  void SendMove(const Move& m);
  void RelayClick(const net::Message& m);  // only watched in Learn Mode
  net::Moment Now() const;
  void ReceiveMessage(const std::string& text);
  void BadData(const std::string& text);
  void OnMessage(const net::Invite&);
  void OnMessage(const net::Accept&);
  void OnMessage(const net::Reject&);
  void OnMessage(const net::Deal& s);
  void OnMessage(const net::CardClick& m);
  void OnMessage(const net::ClearCards&);
  void OnMessage(const net::DiscardClick&);
  void OnMessage(const net::DiscardMove& m);
  void OnMessage(const net::Look&);
  void OnMessage(const net::DrawMove& m);
  void OnMessage(const net::Pass&);
  void OnMessage(const net::Switch& m);
  void OnMessage(const net::Smack& m);
  void OnMessage(const net::Take& m);
  void OnMessage(const net::Quit&);
  void OnMessage(const net::Exit&);
  void AwaitFirstRemoteMove();
  void PlayB(const Move& m);
  void SwitchemSent(const Move& m);
  void OpponentGone(Control& prompt);
  void EnableBetweenRemoteGames();
  void AcknowledgePrompt(Control& prompt);
  void BeginGameFlags();
  void RestoreNewGame();
  void RefreshQuit();
  bool AwaitingOpponent() const;

  // Learn Mode display.
  void ToggleJudgementDisplay();

  // The prompt line and highlights (game_prompt.cpp).
  PromptFacts Facts() const;
  void NoteMove(const GameState& before, const Move& m);  // a counted move: told and listed
  void StartMoveList();  // a game's deal: its moves are told from here
  void ClearHighlights();

  // The Hint (game_hint.cpp): offered on side A's ordinary turn; its advice is shown on the
  // prompt line and highlighted at the end of every event while the position stands.
  bool HintAvailable() const;
  bool AskHint();
  void ShowHint();

  // Undo (game_undo.cpp): a point kept before each of side A's moves in play against the
  // computer; taking one back restores the game and refreshes the board from it.
  bool UndoAvailable() const;
  void KeepUndoPoint(const Move& m);
  void NoteDrawSeen(const Move& m);
  bool Undo();
  void ShowDrawLooked();  // the Draw Pile card turned over for side A, which must take or pass it

  Platform& platform_;
  std::string settings_path_;
  GameState g_;
  ai::ChosenSeat seat_{kSideB};
  bool expert_chosen_ = false;
  // What side A has seen of the opponent's cards, for the Expert's Hint.
  ai::ShownCards shown_a_{kSideA};
  // The computer's judgement as the display shows it: the seat's, taken after each of its steps.
  ai::Judgement judge_;
  Settings loaded_;  // what the file held at the last load

  bool vs_computer_ = true;
  RemotePlay remote_;
  std::string opponent_name_;
  bool fast_mode_ = false;
  bool learn_mode_ = false;
  bool saved_fast_mode_ = false;
  bool saved_learn_mode_ = false;
  bool judgement_shown_ = false;
  bool stackem_unavailable_ = false;
  bool random_game_ = false;
  std::array<bool, 5> random_picks_{};
  float window_left_ = 0;
  float window_top_ = 0;

  bool game_running_ = false;
  bool game_over_ = false;  // a result button is up
  bool first_turn_ = false;
  bool exited_ = false;
  bool stats_requested_ = false;
  bool about_requested_ = false;
  bool invitation_requested_ = false;
  bool invitation_dismissed_ = false;
  bool communicate_requested_ = false;
  std::string save_notice_;
  bool shown_face_up_ = false;  // the opponent's cards were on show during this game
  bool sound_on_ = true;
  bool ask_before_abandoning_ = true;
  Connection last_connection_;
  Selecting selecting_ = Selecting::kNone;
  Pending pending_ = Pending::kNone;
  int popup_slot_ = 0;

  // Side B's move on show until its button (pending_ says which button).
  Move held_;

  // The prompt line: side B's Backem waiting to be told with its move, what this event has to
  // tell, the last result, and the controls lit up.
  bool backem_untold_ = false;
  std::string news_;
  std::string result_;
  std::vector<Control*> highlighted_;
  int highlight_serial_ = 0;
  int event_depth_ = 0;

  HintModel hint_;

  UndoHistory undo_;
};

}  // namespace bq
