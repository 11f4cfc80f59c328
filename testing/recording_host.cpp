#include "testing/recording_host.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "oKstPlatform/host_control.h"
#include "oKstPlatform/kst_time.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/url_utils.h"
#include "testing/platform_calls.h"

namespace oet_testing {

// The telemetry service object the library is handed.
class RecordingHost::Telemetry final : public iOrbotelemetryAPI {
 public:
  explicit Telemetry(RecordingHost* host) : host_(host) {}
  IOrboEvent* CreateEvent() override { return host_->CreateEvent(); }
  void* CreateEntity(int32_t type) override { return host_->CreateEntity(type); }
  int32_t SubmitEvent(IOrboEvent* event, int32_t first, int32_t second, EventParams* params) override {
    return host_->SubmitEvent(event, first, second, params);
  }

 private:
  RecordingHost* host_;
};

// An event object the library is handed; deleted when the library destroys it.
class RecordingHost::Event final : public IOrboEvent {
 public:
  Event(RecordingHost* host, int number) : host_(host), number_(number) {}
  void DestroyEvent(int32_t flags) override { host_->DestroyEvent(*this, flags); }
  void AttachEntityList(int32_t id, std::vector<orbo_entity::EntityBase*> entities) override {
    host_->AttachEntityList(*this, id, entities);
  }
  void AttachEntity(int32_t id, orbo_entity::EntityBase* entity) override {
    host_->AttachEntity(*this, id, entity);
  }
  int number() const { return number_; }

 private:
  RecordingHost* host_;
  int number_;
};

struct RecordingHost::EventState {
  RecordedEvent record;
  std::unique_ptr<Event> object;  // null once destroyed
  std::vector<std::unique_ptr<RecordedEntity>> entities;
  int entity_count = 0;
  std::thread::id thread;
};

namespace {

thread_local int t_bookkeeping_depth = 0;

using KstHost::PlatformFunction;
using KstHost::SystemFact;

// The host whose lifetime it is (one at a time per process), seen by the platform observer.
std::atomic<RecordingHost*> g_observing_host{nullptr};

}  // namespace

void InstallStandardMachine() {
  const std::pair<SystemFact, const char*> facts[] = {
      {SystemFact::kOSVersion, "10.0.22631"},
      {SystemFact::kSystemProductName, "Example Book 14"},
      {SystemFact::kSystemManufacturer, "Example Computers"},
      {SystemFact::kRegionName, "US"},
      {SystemFact::kGPUModel, "Example Graphics 620"},
      {SystemFact::kCPUType, "x64"},
      {SystemFact::kCPUName, "Example CPU 8 cores @ 2.40GHz"},
      {SystemFact::kTotalRAMGB, "16"},
      {SystemFact::kScreenSizeIn, "14"},
      {SystemFact::kResolution, "1920*1080"},
      {SystemFact::kNetworkType, "wifi"},
      {SystemFact::kLanguageSetting, "en-US"},
      {SystemFact::kCurrentVersion, "6.2.10.4512"},
  };
  for (const auto& fact : facts)
    KstHost::OverrideSystemFact(fact.first, fact.second);
  KstHost::SetClock(Kst::Time::FromUnixMilliseconds(1772860141042));  // 2026-03-07T05:09:01.042Z
}

namespace {

std::string Quoted(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

// A value as Describe shows it; std::monostate (a null object) as null.
std::string ValueOf(const OpValue& value) {
  std::ostringstream out;
  if (const auto* text = std::get_if<std::string>(&value)) out << Quoted(*text);
  if (const auto* i32 = std::get_if<int32_t>(&value)) out << *i32;
  if (const auto* i64 = std::get_if<int64_t>(&value)) out << *i64;
  if (const auto* u64 = std::get_if<uint64_t>(&value)) out << *u64;
  if (const auto* flag = std::get_if<bool>(&value)) out << (*flag ? "true" : "false");
  if (const auto* number = std::get_if<double>(&value)) out << *number;
  if (value.index() == 0) out << "null";
  return out.str();
}

std::string EntityRef(int number) {
  return number == 0 ? "null" : number < 0 ? "unknown" : "#" + std::to_string(number);
}

}  // namespace

HostBookkeeping::HostBookkeeping() {
  ++t_bookkeeping_depth;
}

HostBookkeeping::~HostBookkeeping() {
  --t_bookkeeping_depth;
}

bool InHostBookkeeping() {
  return t_bookkeeping_depth > 0;
}

// The platform observer of the host whose lifetime it is: the library's calls into the stand-in, not
// the host's own.
static void ObservePlatform(const KstHost::PlatformCall& platform) {
  RecordingHost* host = g_observing_host.load();
  if (host == nullptr || InHostBookkeeping()) return;
  HostBookkeeping bookkeeping;
  host->RecordPlatformCall(platform);
}

RecordingHost::RecordingHost(Machine machine) : telemetry_(std::make_unique<Telemetry>(this)) {
  web_service_.SetRecorder([this](Call call) { RecordHostCall(std::move(call)); });
  g_observing_host.store(this);
  KstHost::SetPlatformObserver(&ObservePlatform);
  if (machine == Machine::kStandard) InstallStandardMachine();
  KstHost::SetRegistryAvailable(true);
  SetTelemetryPresent(true);
  SetWebServicePresent(true);
}

RecordingHost::~RecordingHost() {
  KstHost::SetPlatformObserver(nullptr);
  g_observing_host.store(nullptr);
  KstHost::ClearRegistry();
  KstHost::SetRegistryAvailable(true);
  KstHost::ClearSystemFactOverrides();
  KstHost::UseSystemClock();
  KstHost::SetUrlUtilsPresent(true);
  KstHost::SetDevelopmentUrlPredicate(nullptr);
  KstHost::ClearMetricWords();
}

void RecordingHost::SetRegistryAvailable(bool available) {
  KstHost::SetRegistryAvailable(available);
}

void RecordingHost::SetTelemetryPresent(bool present) {
  if (present) {
    KstHost::RegisterClassObject(kOrboTelemetryModule, kOrboTelemetryClass,
                                 static_cast<iOrbotelemetryAPI*>(telemetry_.get()));
  } else {
    KstHost::UnregisterModule(kOrboTelemetryModule);
  }
}

void RecordingHost::SetWebServicePresent(bool present) {
  if (present) {
    KstHost::RegisterClassObject(kWebServiceModule, kWebServiceClass,
                                 static_cast<ICVWebServiceAPI*>(&web_service_));
  } else {
    KstHost::UnregisterModule(kWebServiceModule);
  }
}

void RecordingHost::SetTelemetryClassObjectPresent(bool present) {
  if (present) {
    SetTelemetryPresent(true);
  } else {
    KstHost::UnregisterClassObject(kOrboTelemetryModule, kOrboTelemetryClass);
  }
}

void RecordingHost::SetWebServiceClassObjectPresent(bool present) {
  if (present) {
    SetWebServicePresent(true);
  } else {
    KstHost::UnregisterClassObject(kWebServiceModule, kWebServiceClass);
  }
}

void RecordingHost::SetCreateEntityFailsAt(int32_t type, int n) {
  std::lock_guard<std::mutex> lock(mutex_);
  if (n > 0) {
    failing_countdowns_[type] = n;
  } else {
    failing_countdowns_.erase(type);
  }
}

void RecordingHost::SetCreateEventFails(bool fails) {
  std::lock_guard<std::mutex> lock(mutex_);
  create_event_fails_ = fails;
}

void RecordingHost::SetCreateEntityFails(int32_t type, bool fails) {
  std::lock_guard<std::mutex> lock(mutex_);
  if (fails) {
    failing_types_.insert(type);
  } else {
    failing_types_.erase(type);
  }
}

void RecordingHost::ThrowAtCall(int n) {
  std::lock_guard<std::mutex> lock(mutex_);
  throw_countdown_ = n;
}

std::vector<Call> RecordingHost::Log() const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<Call> telemetry;
  for (const auto& call : log_) {
    if (call.fn != Call::Fn::kHostCall) telemetry.push_back(call);
  }
  return telemetry;
}

std::vector<Call> RecordingHost::HostCalls() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return log_;
}

int RecordingHost::HostCallCount(const std::string& name) const {
  std::lock_guard<std::mutex> lock(mutex_);
  const auto it = host_call_counts_.find(name);
  return it == host_call_counts_.end() ? 0 : it->second;
}

void RecordingHost::RecordHostCall(Call call) {
  std::lock_guard<std::mutex> lock(mutex_);
  call.fn = Call::Fn::kHostCall;
  ++host_call_counts_[call.name];
  log_.push_back(std::move(call));
}

void RecordingHost::RecordPlatformCall(const KstHost::PlatformCall& platform) {
  RecordHostCall(HostCallOf(platform, static_cast<iOrbotelemetryAPI*>(telemetry_.get()),
                            static_cast<ICVWebServiceAPI*>(&web_service_)));
}

std::vector<RecordedEvent> RecordingHost::TakeEvents(std::vector<Call>* host_calls) {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<RecordedEvent> taken;
  for (auto it = events_.lower_bound(first_untaken_); it != events_.end();) {
    EventState& state = *it->second;
    taken.push_back(state.record);
    if (state.record.outcome == RecordedEvent::Outcome::kOpen) {
      ++it;  // the library may still use an open event: keep its objects
      continue;
    }
    for (const auto& entity : state.entities)
      entity_by_base_.erase(entity->base());
    event_numbers_.erase(state.object.get());
    it = events_.erase(it);
  }
  first_untaken_ = event_count_ + 1;
  if (host_calls != nullptr) *host_calls = std::move(log_);
  log_.clear();
  return taken;
}

int RecordingHost::OpenEventCount() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return open_count_;
}

std::vector<RecordedEvent> RecordingHost::Events() const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<RecordedEvent> all;
  for (auto it = events_.lower_bound(first_untaken_); it != events_.end(); ++it)
    all.push_back(it->second->record);
  return all;
}

void RecordingHost::SetDestroyEventThrows(bool throws) {
  std::lock_guard<std::mutex> lock(mutex_);
  destroy_event_throws_ = throws;
}

void RecordingHost::Record(Call call, bool fails) {
  const bool throw_now = (throw_countdown_ > 0 && --throw_countdown_ == 0) || fails;
  call.threw = throw_now;
  const auto event = events_.find(call.event);
  if (event != events_.end()) event->second->record.calls.push_back(call);
  log_.push_back(std::move(call));
  if (throw_now) throw std::runtime_error("recording host told to throw");
}

RecordingHost::EventState* RecordingHost::OpenEventOfThisThread() {
  const auto it = open_event_.find(std::this_thread::get_id());
  if (it == open_event_.end()) return nullptr;
  const auto event = events_.find(it->second);
  return event == events_.end() ? nullptr : event->second.get();
}

int RecordingHost::EntityNumber(orbo_entity::EntityBase* base) const {
  if (base == nullptr) return 0;
  const auto it = entity_by_base_.find(base);
  return it == entity_by_base_.end() ? -1 : it->second->number();
}

void RecordingHost::SetCreateEventHook(std::function<void()> hook) {
  std::lock_guard<std::mutex> lock(mutex_);
  create_event_hook_ = std::move(hook);
}

IOrboEvent* RecordingHost::CreateEvent() {
  HostBookkeeping bookkeeping;
  std::function<void()> hook;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    hook = create_event_hook_;
  }
  if (hook) hook();
  std::lock_guard<std::mutex> lock(mutex_);
  Call call;
  call.fn = Call::Fn::kCreateEvent;
  if (create_event_fails_ || throw_countdown_ == 1) {
    Record(call);  // throws when armed: the library gets no event, so none is created
    return nullptr;
  }
  auto state = std::make_unique<EventState>();
  state->record.number = ++event_count_;
  state->object = std::make_unique<Event>(this, state->record.number);
  state->thread = std::this_thread::get_id();
  IOrboEvent* object = state->object.get();
  call.event = state->record.number;
  open_event_[state->thread] = state->record.number;
  event_numbers_[object] = state->record.number;
  events_[state->record.number] = std::move(state);
  Record(call);
  ++open_count_;
  return object;
}

void* RecordingHost::CreateEntity(int32_t type) {
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  EventState* state = OpenEventOfThisThread();
  Call call;
  call.fn = Call::Fn::kCreateEntity;
  call.type = type;
  call.event = state == nullptr ? 0 : state->record.number;
  std::unique_ptr<RecordedEntity> entity;
  bool fails = failing_types_.count(type) != 0;
  const auto countdown = failing_countdowns_.find(type);
  if (countdown != failing_countdowns_.end() && --countdown->second == 0) {
    fails = true;
    failing_countdowns_.erase(countdown);
  }
  if (!fails) {
    entity = MakeRecordedEntity(type, this, call.event, state == nullptr ? 0 : state->entity_count + 1);
  }
  if (entity != nullptr) {
    if (state != nullptr) ++state->entity_count;
    call.entity = entity->number();
    entity_by_base_[entity->base()] = entity.get();
  }
  void* own = entity == nullptr ? nullptr : entity->own_interface();
  if (entity != nullptr) (state == nullptr ? stray_entities_ : state->entities).push_back(std::move(entity));
  Record(call);
  return own;
}

void RecordingHost::RecordOp(RecordedEntity& entity, const char* iface, int op, const char* name, OpKind kind,
                             OpValue value) {
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  Call call;
  call.fn = Call::Fn::kEntityOp;
  call.event = entity.event();
  call.entity = entity.number();
  call.type = entity.type();
  call.iface = iface;
  call.op = op;
  call.name = name;
  call.kind = kind;
  call.value = std::move(value);
  Record(std::move(call));
}

int32_t RecordingHost::SubmitEvent(IOrboEvent* event, int32_t first, int32_t second, EventParams* params) {
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  Call call;
  call.fn = Call::Fn::kSubmitEvent;
  call.first_code = first;
  call.second_code = second;
  call.params = params == nullptr ? -1 : static_cast<long long>(params->size());
  EventState* state = nullptr;
  const auto number = event_numbers_.find(event);
  if (number != event_numbers_.end()) {
    const auto found = events_.find(number->second);
    if (found != events_.end()) state = found->second.get();
  }
  call.event = state == nullptr ? 0 : state->record.number;
  const bool will_throw = throw_countdown_ == 1;
  if (state != nullptr && !will_throw) {
    --open_count_;
    state->record.outcome = RecordedEvent::Outcome::kSubmitted;
    open_event_.erase(state->thread);
  }
  Record(call);
  return 0;
}

void RecordingHost::DestroyEvent(Event& event, int32_t flags) {
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  EventState& state = *events_.at(event.number());
  Call call;
  call.fn = Call::Fn::kDestroyEvent;
  call.event = state.record.number;
  call.first_code = flags;
  Record(call, destroy_event_throws_);
  --open_count_;
  state.record.outcome = RecordedEvent::Outcome::kDestroyed;
  open_event_.erase(state.thread);
  event_numbers_.erase(state.object.get());
  state.object.reset();  // the library must not touch the event again
}

void RecordingHost::AttachEntityList(Event& event, int32_t id,
                                     const std::vector<orbo_entity::EntityBase*>& entities) {
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  Call call;
  call.fn = Call::Fn::kAttachEntityList;
  call.event = event.number();
  call.attachment_id = id;
  for (auto* entity : entities)
    call.entities.push_back(EntityNumber(entity));
  Record(call);
}

void RecordingHost::AttachEntity(Event& event, int32_t id, orbo_entity::EntityBase* entity) {
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  Call call;
  call.fn = Call::Fn::kAttachEntity;
  call.event = event.number();
  call.attachment_id = id;
  call.entity = EntityNumber(entity);
  Record(call);
}

std::string Describe(const Call& call) {
  std::ostringstream out;
  switch (call.fn) {
    case Call::Fn::kCreateEvent:
      out << "CreateEvent -> " << (call.event == 0 ? "null" : "event " + std::to_string(call.event));
      break;
    case Call::Fn::kCreateEntity:
      out << "CreateEntity " << call.type << " -> " << EntityRef(call.entity);
      break;
    case Call::Fn::kEntityOp:
      out << EntityRef(call.entity) << " " << call.iface << "." << call.op << " " << call.name;
      if (call.value.index() != 0) out << " " << ValueOf(call.value);
      break;
    case Call::Fn::kAttachEntityList: {
      out << "AttachEntityList " << call.attachment_id << " [";
      for (size_t i = 0; i < call.entities.size(); ++i)
        out << (i == 0 ? "" : ", ") << EntityRef(call.entities[i]);
      out << "]";
      break;
    }
    case Call::Fn::kAttachEntity:
      out << "AttachEntity " << call.attachment_id << " " << EntityRef(call.entity);
      break;
    case Call::Fn::kSubmitEvent:
      out << "SubmitEvent " << call.first_code << " " << call.second_code << " params=" << call.params;
      break;
    case Call::Fn::kDestroyEvent:
      out << "DestroyEvent " << call.first_code;
      break;
    case Call::Fn::kHostCall: {
      out << call.name << "(";
      for (size_t i = 0; i < call.args.size(); ++i)
        out << (i == 0 ? "" : ", ") << ValueOf(call.args[i]);
      out << ")";
      if (call.answered) out << " -> " << ValueOf(call.answer);
      break;
    }
  }
  if (call.threw) out << " (threw)";
  return out.str();
}

std::vector<std::string> Describe(const std::vector<Call>& calls) {
  std::vector<std::string> lines;
  for (const auto& call : calls)
    lines.push_back(Describe(call));
  return lines;
}

}  // namespace oet_testing
