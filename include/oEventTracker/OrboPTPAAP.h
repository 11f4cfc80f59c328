// Tracking functions of the standalone client's main window (namespace OrboPTPAAP) and their input
// records, one header per family. A client includes this file.
//
// Every tracking function turns its records into one telemetry event and hands it to the host's
// telemetry service. It returns 1 when the event was submitted and 0 when it could not be built (a
// service or the event missing, a record refused by the event's own gate, a call dropped by a rate
// limit, or an internal failure); it never throws. Records are read, never modified.
#pragma once

#include "oEventTracker/OrboPTPAAP/tracking.h"

// ---- Main window: tabs, search, client facts, sign-in, phone.
#include "oEventTracker/OrboPTPAAP/client_info.h"
#include "oEventTracker/OrboPTPAAP/phone.h"
#include "oEventTracker/OrboPTPAAP/post_meeting.h"
#include "oEventTracker/OrboPTPAAP/search.h"
#include "oEventTracker/OrboPTPAAP/signin.h"
#include "oEventTracker/OrboPTPAAP/tabs.h"

// ---- Standalone events: chat, meeting, client, performance metrics, notice, preferences.
#include "oEventTracker/OrboPTPAAP/chat.h"
#include "oEventTracker/OrboPTPAAP/client.h"
#include "oEventTracker/OrboPTPAAP/meeting.h"
#include "oEventTracker/OrboPTPAAP/notice.h"
#include "oEventTracker/OrboPTPAAP/perf_metrics.h"
#include "oEventTracker/OrboPTPAAP/preferences.h"

// ---- Performance reports and chat-module events.
#include "oEventTracker/OrboPTPAAP/apm_reports.h"
#include "oEventTracker/OrboPTPAAP/chat_module.h"
#include "oEventTracker/OrboPTPAAP/oui_framework.h"
