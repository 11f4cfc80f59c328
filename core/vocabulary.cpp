#include "core/vocabulary.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

// Every word here is a wire word: the back end compares it byte for byte, including the capital letters
// and misspellings noted in the header. Copy new words exactly as the back end spells them.

namespace oet {
namespace {

struct Word {
  int32_t value;
  const char* word;
};

// A table's words as strings, made once, for the words that events set without a copy. Each is made on
// first use and never destroyed, so that a call from a client's exit path still finds it.
template <std::size_t N>
class WordStrings {
 public:
  // The words indexed by value from the table's smallest value to its largest (the tables are a few
  // dozen values wide), so that a word is found by one index rather than a scan.
  explicit WordStrings(const Word (&table)[N]) {
    first_ = table[0].value;
    int32_t last = table[0].value;
    for (const Word& entry : table) {
      first_ = entry.value < first_ ? entry.value : first_;
      last = entry.value > last ? entry.value : last;
    }
    by_value_.resize(static_cast<std::size_t>(last - first_) + 1, &none_);
    words_.reserve(N);
    for (const Word& entry : table) {
      words_.emplace_back(entry.word);
      by_value_[static_cast<std::size_t>(entry.value - first_)] = &words_.back();
    }
  }
  const std::string& Of(int32_t value) const {
    const int64_t index = static_cast<int64_t>(value) - first_;
    if (index < 0 || index >= static_cast<int64_t>(by_value_.size())) return none_;
    return *by_value_[static_cast<std::size_t>(index)];
  }

 private:
  int32_t first_ = 0;
  std::vector<std::string> words_;
  std::vector<const std::string*> by_value_;
  std::string none_;
};

}  // namespace

std::string TabToString(int32_t value) {
  return TabWord(value);
}

const std::string& TabWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "chat"},
      {2, "home"},
      {3, "phone"},
      {4, "meetings"},
      {5, "apps"},
      {6, "meet_chat"},
      {7, "contacts"},
      {8, "settings"},
      {9, "whiteboards"},
      {10, "mail"},
      {11, "cci"},
      {12, "calendar"},
      // 13..16 have no tab word.
      {17, "hub"},
      {18, "workflows"},
      {19, "workspaces"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string CallDirectionToString(int32_t value) {
  return CallDirectionWord(value);
}

const std::string& CallDirectionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "inbound"},
      {2, "outbound"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

const std::string& InteractionTypeWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "screen_displayed"},  {2, "button_clicked"},  {3, "keyboard_typed"},
      {4, "keyboard_shortcut"}, {5, "touchpad_tapped"}, {6, "clicked"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string InteractionTypeToString(int32_t value) {
  return InteractionTypeWord(value);
}

const std::string& HomeTabFeatureWord(int32_t value) {
  // "Unknown" keeps its capital U, and 0 has a word here only.
  static constexpr Word kWords[] = {
      {0, "Unknown"},  {1, "schedule_meeting"}, {2, "share_screen"},
      {3, "home_tab"}, {4, "start_a_meeting"},  {5, "join_meeting"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string HomeTabFeatureToString(int32_t value) {
  return HomeTabFeatureWord(value);
}

const std::string& HomeTabElementWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "switch_tab"},
      {2, "setting_icon"},
      {3, "minimize"},
      {4, "maximize"},
      {5, "close"},
      {6, "new_meeting"},
      {7, "join"},
      {8, "schedule_meeting"},
      {9, "share_screen"},
      {10, "back_to_meeting"},
      {11, "join_panel"},
      {12, "start_panel"},
      {13, "view_panel"},
      {14, "three_dot"},
      {15, "copy_invitation_panel"},
      {16, "edit_panel"},
      {17, "delete_panel"},
      {18, "join_from_a_room_panel"},
      {19, "view_upcoming_meetings"},
      {20, "copy_id"},
      {21, "copy_invitation"},
      {22, "pmi_settings"},
      {23, "dropdown_caret"},
      {24, "cancel"},
      {25, "save"},
      {26, "share_screen_button"},
      {27, "schedule"},
      {28, "start_a_meeting"},
      {29, "join_meeting"},
      {30, "ok"},
      {31, "new_whiteboard"},
      {32, "popin"},
      {33, "popout"},
      {34, "resume_auto_scroll"},
      {35, "next_search"},
      {36, "prev_search"},
      {37, "cancel_search"},
      {38, "search"},
      {39, "automatically"},
      {40, "manually"},
      {41, "disable_live_transcript"},
      {42, "live_transcript"},
      {43, "more"},
      {44, "text_input"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string HomeTabElementToString(int32_t value) {
  return HomeTabElementWord(value);
}

const std::string& SearchEntryWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "global_search_bar"},
      {2, "global_search_app"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchEntryToString(int32_t value) {
  return SearchEntryWord(value);
}

const std::string& SearchActionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "initiate"}, {2, "display"}, {3, "perform"}, {4, "launch"}, {5, "close"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchActionToString(int32_t value) {
  return SearchActionWord(value);
}

const std::string& SearchResultActionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "click"},
      {2, "chat"},
      {3, "meet_with_Video"},  // Capital V on purpose, unlike 4.
      {4, "meet_without_video"},
      {5, "phone_call"},
      {6, "notify_me_when_available"},
      {7, "do_not_notify_me_when_available"},
      {8, "add_members"},
      {9, "view_profile"},
      {10, "star_this_contact"},
      {11, "add_to_group"},
      {12, "move_to_folder"},
      {13, "add_to_auto_answer_group"},
      {14, "block_contact"},
      {15, "unblock_contact"},
      {16, "delete_contact"},
      {17, "star_this_channel"},
      {18, "notifications"},
      {19, "edit_channel"},
      {20, "assign_new_admin"},
      {21, "manage_posting_permissions"},
      {22, "clear_chat_history"},
      {23, "leave_channel"},
      {24, "delete_channel"},
      {25, "preview_channel"},
      {26, "join_channel"},
      {27, "view_context"},
      {28, "jump"},
      {29, "down_load_file"},  // Split "down_load" on purpose.
      {30, "share_file"},
      {31, "add_file_to_emoji"},
      {32, "open_file"},
      {33, "open_in_browser"},
      {34, "show_in_folder"},
      {35, "copy"},
      {36, "delete"},
      {37, "open_with_other_app"},
      {38, "clear_all"},
      {39, "join_huddle"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchResultActionToString(int32_t value) {
  return SearchResultActionWord(value);
}

const std::string& SearchCategoryWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "all"},
      {2, "top_result"},
      {3, "contacts"},
      {4, "channels"},
      {5, "joined_channels"},
      {6, "unjoined_public_channels"},  // Spelt correctly here, unlike section 6.
      {7, "messages"},
      {8, "files"},
      {9, "recent_searches"},
      {10, "spell_check_contact"},
      {11, "muc"},
      {12, "pmc"},
      {13, "room"},
      {14, "semantic_unjoined_public_channel"},
      {15, "huddles"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchCategoryToString(int32_t value) {
  return SearchCategoryWord(value);
}

const std::string& SearchSectionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "contacts"},
      {2, "channels"},
      {3, "messages"},
      {4, "files"},
      {5, "joined_channels"},
      {6, "unjonied_public_channels"},  // "unjonied" on purpose, unlike category 6.
      {7, "recent_searches"},
      {8, "spell_check_contact"},
      {9, "muc"},
      {10, "pmc"},
      {11, "room"},
      {12, "semantic_unjoined_public_channel"},
      {13, "huddles"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchSectionToString(int32_t value) {
  return SearchSectionWord(value);
}

const std::string& SearchSourceWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "none"},
      {2, "all"},
      {3, "chat"},
      {4, "sms"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchSourceToString(int32_t value) {
  return SearchSourceWord(value);
}

const std::string& SearchFileTypeWord(int32_t value) {
  // "all files" keeps its space; the other words are joined with underscores.
  static constexpr Word kWords[] = {
      {1, "all files"},     {2, "images"},       {3, "videos"},     {4, "documents"},
      {5, "presentations"}, {6, "spreadsheets"}, {7, "whiteboard"}, {8, "other_file_types"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchFileTypeToString(int32_t value) {
  return SearchFileTypeWord(value);
}

const std::string& SearchSortOrderWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "most_recent"},
      {2, "most_relevant"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SearchSortOrderToString(int32_t value) {
  return SearchSortOrderWord(value);
}

std::string SearchChatScopeToString(int32_t value) {
  return value == 1 ? "orbo_chat" : std::string();
}

const std::string& SurveyStageWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "survey_shown"},
      {2, "survey_interacted"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SurveyStageToString(int32_t value) {
  return SurveyStageWord(value);
}

const std::string& SurveyActionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "post_meeting_survey"}, {2, "close"}, {3, "minimize"}, {4, "thumbs_up"}, {5, "thumbs_down"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string SurveyActionToString(int32_t value) {
  return SurveyActionWord(value);
}

const std::string& JoinMeetingInteractionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "button_clicked"},
      {2, "screen_displayed"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string JoinMeetingInteractionToString(int32_t value) {
  return JoinMeetingInteractionWord(value);
}

const std::string& JoinScreenActionWord(int32_t value) {
  static constexpr Word kWords[] = {
      {1, "screen_displayed"},
      // 2 has no word.
      {3, "cancel"},
  };
  static const auto& words = *new WordStrings<std::size(kWords)>(kWords);
  return words.Of(value);
}

std::string JoinScreenActionToString(int32_t value) {
  return JoinScreenActionWord(value);
}

}  // namespace oet
