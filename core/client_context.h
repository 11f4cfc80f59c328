// The process-wide client-context cache: facts about the client and the machine, gathered once and
// repeated in every client entity.
//
// The cache starts unfilled (its web-service value empty). Each refresh while it is unfilled and the
// web service exists asks the web service to fill the record and re-reads every machine fact; once the
// web-service value is non-empty the record stays as it is until the process ends. Events read a copy.
//
// Safe for several threads: the record is only read and replaced under a lock, and no lock is held
// while the host is called, so a host that calls back into the library cannot deadlock it. Two threads
// that refresh an unfilled cache at once may both ask the host; the first complete answer is kept.
#pragma once

#include "platform/web_service.h"

namespace oet {

// Creates the cache on first use (refreshing it once); later calls do nothing. Every export that
// reads the cache, or must create it before it looks services up, starts here.
void EnsureClientContext();

// Get, refresh and copy: the record as one event reads it.
ClientContext RefreshedClientContext();

// Forgets everything the cache holds, as at process start. Test programs use it to begin each case
// from an unfilled cache; the library itself never calls it.
void ResetClientContextForTesting();

}  // namespace oet
