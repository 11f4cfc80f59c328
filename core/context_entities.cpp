#include "core/context_entities.h"

#include "core/client_context.h"
#include "core/host.h"
#include "platform/system_info.h"

namespace oet {

using orbo_entity::ClientEntity;

ClientEntity* BuildClientEntity(iOrbotelemetryAPI* telemetry, ICVWebServiceAPI* web_service) {
  if (telemetry == nullptr || web_service == nullptr) return nullptr;
  ClientEntity* entity = CreateEntity<ClientEntity>(telemetry);
  if (entity == nullptr) return nullptr;
  const ClientContext context = RefreshedClientContext();
  orbo_entity::DeviceInfo& device = *entity;
  Kst::CStringT<char> version;
  Kst::GetCurrentVersion(version);

  device.SetWebServiceValue(ToUtf8(context.web_service_value));
  device.SetDeviceProduct(ToUtf8(context.system_product_name));
  entity->SetDeviceManufacturer(ToUtf8(context.system_manufacturer));
  entity->SetClientVersion(TextOf(version));
  SetOrClear(entity, &ClientEntity::ClearGpuModel, &ClientEntity::SetGpuModel, context.gpu_model);
  SetOrClear(entity, &ClientEntity::ClearCpuType, &ClientEntity::SetCpuType, context.cpu_type);
  SetOrClear(entity, &ClientEntity::ClearRegion, &ClientEntity::SetRegion, context.region);
  entity->SetLanguage(ToUtf8(context.language));
  entity->SetNetworkType(ToUtf8(context.network_type));
  device.SetOsName(ToUtf8(context.os_name));
  device.SetOsVersion(ToUtf8(context.os_version));
  SetOrClear(entity, &ClientEntity::ClearResolution, &ClientEntity::SetResolution, context.resolution);
  if (context.total_ram_gb == 0) {
    entity->ClearTotalRam();
  } else {
    entity->SetTotalRam(static_cast<int64_t>(context.total_ram_gb));
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
  const ClientContext context = RefreshedClientContext();
  device.SetWebServiceValue(ToUtf8(context.web_service_value));
  device.SetDeviceProduct(ToUtf8(context.system_product_name));
  device.SetOsName(ToUtf8(context.os_name));
  device.SetOsVersion(ToUtf8(context.os_version));
}

}  // namespace oet
