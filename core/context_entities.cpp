#include "core/context_entities.h"

#include "core/client_context.h"
#include "core/host.h"
#include "oKstPlatform/system_info.h"

namespace oet {

using orbo_entity::ClientEntity;

ClientEntity* BuildClientEntity(iOrbotelemetryAPI* telemetry, ICVWebServiceAPI* web_service) {
  if (telemetry == nullptr || web_service == nullptr) return nullptr;
  ClientEntity* entity = CreateEntity<ClientEntity>(telemetry);
  if (entity == nullptr) return nullptr;
  const ClientFactsView facts = RefreshedClientFacts();
  orbo_entity::DeviceInfo& device = *entity;
  Kst::CStringT<char> version;
  Kst::GetCurrentVersion(version);

  device.SetWebServiceValue(facts->web_service_value.utf8);
  device.SetDeviceProduct(facts->system_product_name.utf8);
  entity->SetDeviceManufacturer(facts->system_manufacturer.utf8);
  entity->SetClientVersion(TextOf(version));
  SetOrClear(entity, &ClientEntity::ClearGpuModel, &ClientEntity::SetGpuModel, facts->gpu_model);
  SetOrClear(entity, &ClientEntity::ClearCpuType, &ClientEntity::SetCpuType, facts->cpu_type);
  SetOrClear(entity, &ClientEntity::ClearRegion, &ClientEntity::SetRegion, facts->region);
  entity->SetLanguage(facts->language.utf8);
  entity->SetNetworkType(facts->network_type.utf8);
  device.SetOsName(facts->os_name.utf8);
  device.SetOsVersion(facts->os_version.utf8);
  SetOrClear(entity, &ClientEntity::ClearResolution, &ClientEntity::SetResolution, facts->resolution);
  if (facts->total_ram_gb == 0) {
    entity->ClearTotalRam();
  } else {
    entity->SetTotalRam(static_cast<int64_t>(facts->total_ram_gb));
  }
  return entity;
}

orbo_entity::TrackingInfoEntity* BuildTrackingInfoEntity(iOrbotelemetryAPI* telemetry,
                                                         const OrboPTPAAP::PTTrackingInfo_s& tracking) {
  auto* entity = CreateEntity<orbo_entity::TrackingInfoEntity>(telemetry);
  if (entity == nullptr) return nullptr;
  entity->SetPrimaryValue(TextOf(tracking.primary_value));
  entity->SetSecondaryValue(TextOf(tracking.secondary_value));
  return entity;
}

orbo_entity::ChatTrackingInfoEntity* BuildChatTrackingInfoEntity(
    iOrbotelemetryAPI* telemetry, const OrboPTPAAP::PTTrackingInfo_s& tracking) {
  auto* entity = CreateEntity<orbo_entity::ChatTrackingInfoEntity>(telemetry);
  if (entity == nullptr) return nullptr;
  FillTrackingValues(*entity, tracking);
  return entity;
}

void FillTrackingValues(orbo_entity::TrackingValues& values, const OrboPTPAAP::PTTrackingInfo_s& tracking) {
  values.SetPrimaryValue(TextOf(tracking.primary_value));
  values.SetSecondaryValue(TextOf(tracking.secondary_value));
}

void FillDeviceContext(orbo_entity::DeviceInfo& device) {
  FillDeviceContext(device, *RefreshedClientFacts());
}

void FillDeviceContext(orbo_entity::DeviceInfo& device, const ClientFacts& facts) {
  device.SetWebServiceValue(facts.web_service_value.utf8);
  device.SetDeviceProduct(facts.system_product_name.utf8);
  device.SetOsName(facts.os_name.utf8);
  device.SetOsVersion(facts.os_version.utf8);
}

}  // namespace oet
