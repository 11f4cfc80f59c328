// Wire words of every vocabulary table, typed out here independently of core/vocabulary.cpp so that a
// slip in either place fails (the odd spellings the back end expects included). Every listed value must
// give its word, and the gaps, 0, -1, the values just past either end and the int32 extremes must give
// the empty string.
#include "core/vocabulary.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <string>

namespace {

using WordFn = std::string (*)(int32_t);

constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
constexpr int32_t kMax = std::numeric_limits<int32_t>::max();

struct Table {
  const char* name;
  WordFn fn;
  int32_t first;
  // The words from `first` on with '|' between them; an empty field is a value without a word.
  const char* words;
};

const Table kTables[] = {
    {"Tab", oet::TabToString, 1,
     "chat|home|phone|meetings|apps|meet_chat|contacts|settings|whiteboards|mail|cci|calendar"
     "|||||hub|workflows|workspaces"},
    {"CallDirection", oet::CallDirectionToString, 1, "inbound|outbound"},
    {"InteractionType", oet::InteractionTypeToString, 1,
     "screen_displayed|button_clicked|keyboard_typed|keyboard_shortcut|touchpad_tapped|clicked"},
    {"HomeTabFeature", oet::HomeTabFeatureToString, 0,
     "Unknown|schedule_meeting|share_screen|home_tab|start_a_meeting|join_meeting"},
    {"HomeTabElement", oet::HomeTabElementToString, 1,
     "switch_tab|setting_icon|minimize|maximize|close|new_meeting|join|schedule_meeting|share_screen"
     "|back_to_meeting|join_panel|start_panel|view_panel|three_dot|copy_invitation_panel|edit_panel"
     "|delete_panel|join_from_a_room_panel|view_upcoming_meetings|copy_id|copy_invitation|pmi_settings"
     "|dropdown_caret|cancel|save|share_screen_button|schedule|start_a_meeting|join_meeting|ok"
     "|new_whiteboard|popin|popout|resume_auto_scroll|next_search|prev_search|cancel_search|search"
     "|automatically|manually|disable_live_transcript|live_transcript|more|text_input"},
    {"SearchEntry", oet::SearchEntryToString, 1, "global_search_bar|global_search_app"},
    {"SearchAction", oet::SearchActionToString, 1, "initiate|display|perform|launch|close"},
    {"SearchResultAction", oet::SearchResultActionToString, 1,
     "click|chat|meet_with_Video|meet_without_video|phone_call|notify_me_when_available"
     "|do_not_notify_me_when_available|add_members|view_profile|star_this_contact|add_to_group"
     "|move_to_folder|add_to_auto_answer_group|block_contact|unblock_contact|delete_contact"
     "|star_this_channel|notifications|edit_channel|assign_new_admin|manage_posting_permissions"
     "|clear_chat_history|leave_channel|delete_channel|preview_channel|join_channel|view_context|jump"
     "|down_load_file|share_file|add_file_to_emoji|open_file|open_in_browser|show_in_folder|copy|delete"
     "|open_with_other_app|clear_all|join_huddle"},
    {"SearchCategory", oet::SearchCategoryToString, 1,
     "all|top_result|contacts|channels|joined_channels|unjoined_public_channels|messages|files"
     "|recent_searches|spell_check_contact|muc|pmc|room|semantic_unjoined_public_channel|huddles"},
    {"SearchSection", oet::SearchSectionToString, 1,
     "contacts|channels|messages|files|joined_channels|unjonied_public_channels|recent_searches"
     "|spell_check_contact|muc|pmc|room|semantic_unjoined_public_channel|huddles"},
    {"SearchSource", oet::SearchSourceToString, 1, "none|all|chat|sms"},
    {"SearchFileType", oet::SearchFileTypeToString, 1,
     "all files|images|videos|documents|presentations|spreadsheets|whiteboard|other_file_types"},
    {"SearchSortOrder", oet::SearchSortOrderToString, 1, "most_recent|most_relevant"},
    {"SearchChatScope", oet::SearchChatScopeToString, 1, "orbo_chat"},
    {"SurveyStage", oet::SurveyStageToString, 1, "survey_shown|survey_interacted"},
    {"SurveyAction", oet::SurveyActionToString, 1,
     "post_meeting_survey|close|minimize|thumbs_up|thumbs_down"},
};

class Vocabulary : public testing::TestWithParam<Table> {};

TEST_P(Vocabulary, GivesExactWireWords) {
  const Table& t = GetParam();
  std::map<int32_t, std::string> expected = {{0, ""}, {-1, ""}, {t.first - 1, ""}, {kMin, ""}, {kMax, ""}};
  const std::string words = t.words;
  int32_t value = t.first;
  for (size_t start = 0;; start = words.find('|', start) + 1, ++value) {
    expected[value] = words.substr(start, words.find('|', start) - start);
    if (words.find('|', start) == std::string::npos) break;
  }
  expected[value + 1] = "";
  expected[value + 2] = "";
  for (const auto& [v, word] : expected)
    EXPECT_EQ(t.fn(v), word) << t.name << "(" << v << ")";
}

INSTANTIATE_TEST_SUITE_P(Tables, Vocabulary, testing::ValuesIn(kTables),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
