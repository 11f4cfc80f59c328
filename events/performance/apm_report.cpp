#include "events/performance/apm_report.h"

#include "core/client_context.h"
#include "core/context_entities.h"
#include "core/host.h"

namespace oet {

using orbo_entity::ApmDeviceEntity;

namespace {

void FillApmDeviceEntity(ApmDeviceEntity& entity) {
  const ClientFactsView facts = RefreshedClientFacts();
  FillDeviceContext(entity, *facts);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetCpuName, facts->cpu_name);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetGpuModel, facts->gpu_model);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetResolution, facts->resolution);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetManufacturer, facts->system_manufacturer);
  if (facts->total_ram_gb > 0) entity.SetMemorySizeGb(static_cast<int64_t>(facts->total_ram_gb));
}

}  // namespace

bool StartApmContext(const EventDraft& event, ApmDevice device, ContextList& list) {
  if (device == ApmDevice::kWith) {
    auto* entity = event.Create<ApmDeviceEntity>();
    if (entity == nullptr) return false;
    FillApmDeviceEntity(*entity);
    list.Add(entity);
  }
  auto* marker = event.Create<orbo_entity::ApmReportMarkerEntity>();
  if (marker == nullptr) return false;
  list.Add(marker);
  return true;
}

int FinishApmReport(EventDraft& event, ContextList&& list, ApmReportCode code) {
  event.AttachContextAlways(std::move(list));
  auto* header = event.Create<orbo_entity::ApmReportHeaderEntity>();
  if (header == nullptr) return event.Destroy();
  header->SetReportCategory(code.category);
  header->SetReportCode(code.code);
  event.AttachBody(header);
  return event.Submit(kStandaloneCodes);
}

}  // namespace oet
