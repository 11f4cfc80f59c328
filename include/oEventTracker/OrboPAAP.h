// Tracking functions of the meeting's own user interface (namespace OrboPAAP) and their input records,
// one header per family. A client includes this file.
//
// Every tracking function turns its records into one telemetry event and hands it to the host's
// telemetry service with the codes 4 and 1. It returns 1 when the event was submitted and 0 when it
// could not be built (a service or the event missing, a record refused by the event's own gate, or an
// internal failure); it never throws. Records are read, never modified.
#pragma once

#include "oEventTracker/OrboPAAP/tracking.h"

#include "oEventTracker/OrboPAAP/client.h"
#include "oEventTracker/OrboPAAP/meeting.h"
#include "oEventTracker/OrboPAAP/notice.h"
#include "oEventTracker/OrboPAAP/oui_framework.h"
