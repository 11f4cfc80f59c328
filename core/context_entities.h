// Context entities shared by many events: who (the client and its machine) and where (the caller's
// tracking values).
#pragma once

#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/entities.h"
#include "oKstPlatform/telemetry_api.h"
#include "oKstPlatform/web_service.h"

namespace oet {

struct ClientFacts;

// The client entity (283), filled from a refreshed copy of the client-context cache and the client
// version. Null, with nothing created, when either service is missing; null when the host gives no
// entity.
orbo_entity::ClientEntity* BuildClientEntity(iOrbotelemetryAPI* telemetry, ICVWebServiceAPI* web_service);

// The tracking-info entity (304): both tracking values are set as they are, empty ones included.
// A conforming host always answers this request; should it answer null, the entity is simply null.
orbo_entity::TrackingInfoEntity* BuildTrackingInfoEntity(iOrbotelemetryAPI* telemetry,
                                                         const OrboPTPAAP::PTTrackingInfo_s& tracking);

// The chat events' tracking-info entity (130), filled through its TrackingValues interface; null
// when the host gives no entity.
orbo_entity::ChatTrackingInfoEntity* BuildChatTrackingInfoEntity(
    iOrbotelemetryAPI* telemetry, const OrboPTPAAP::PTTrackingInfo_s& tracking);

// Sets both tracking values on a TrackingValues interface, primary first, empty ones included.
void FillTrackingValues(orbo_entity::TrackingValues& values, const OrboPTPAAP::PTTrackingInfo_s& tracking);

// Fills a DeviceInfo interface from a refreshed copy of the client-context cache, in the order web-service
// value, device product, os name, os version; every field is set, empty or not.
void FillDeviceContext(orbo_entity::DeviceInfo& device);
// The same from facts the caller has already read (one refresh per event).
void FillDeviceContext(orbo_entity::DeviceInfo& device, const ClientFacts& facts);

}  // namespace oet
