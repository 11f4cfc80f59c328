// The recording telemetry host: a stand-in for the host's telemetry service that records every call
// the library makes, so that tests, the replay tool and benchmarks can see each event as data.
//
// Constructing a RecordingHost installs it, with a web-service fake, into the process's service
// registry under the telemetry and web-service module names and class strings, fixes the clock and
// gives the machine a fixed set of system facts; destroying it empties the registry again and
// restores the machine's own facts and clock. One host at a time per process.
//
// Every host-visible call is recorded in order. The telemetry calls: CreateEvent, CreateEntity with its type,
// every entity operation (interface, 1-based operation number, argument or none), AttachEntityList with its
// entries (null entries included), AttachEntity, SubmitEvent with both codes and the size of the
// parameter map, DestroyEvent. Every entity hands out an attribute holder (unless told not to): the
// request shows as the entity's operation `EntityBase.1 GetAttributeHolder <selector>` and each value set
// on the holder as `AttributeHolder.1 SetValue <value>` of the same entity. Calls are grouped by event:
// entity requests and operations belong to the event most recently created on the same thread and not yet
// submitted or destroyed.
//
// Beside them, every other call the library makes into the host is recorded in the same order (see
// HostCalls): the service registry, the web service's operations, the URL utilities, the system facts,
// the clock, the code-page conversion, the number helpers and the chat performance-metric words. The
// calls of the stand-in platform are seen through its observer (oKstPlatform/host_control.h), which the
// host sets for its lifetime; calls made during host bookkeeping (the host's, the fake's or a tool's
// own work, see host_bookkeeping.h) are not recorded.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <unordered_map>
#include <variant>
#include <vector>

#include "oKstPlatform/host_control.h"
#include "oKstPlatform/telemetry_api.h"
#include "testing/host_bookkeeping.h"
#include "testing/web_service_fake.h"

namespace oet_testing {

enum class OpKind { kClear, kCall, kString, kInt32, kInt64, kUInt64, kBool, kDouble };
using OpValue = std::variant<std::monostate, std::string, int32_t, int64_t, uint64_t, bool, double>;

// One host-visible call.
struct Call {
  enum class Fn {
    kCreateEvent,
    kCreateEntity,
    kEntityOp,
    kAttachEntityList,
    kAttachEntity,
    kSubmitEvent,
    kDestroyEvent,
    kHostCall,  // any other call into the host: registry, web service, URL utilities, system facts, ...
  };
  Fn fn = Fn::kCreateEvent;
  int event = 0;      // the event the call belongs to (1-based); 0 for none
  int32_t type = 0;   // CreateEntity: the requested type; entity operation: the entity's type
  int entity = 0;     // CreateEntity, entity operation, AttachEntity: entity number within its event,
                      // 0 for a null entity, -1 for a pointer this host never handed out
  std::string iface;  // entity operation: the interface that declares it
  int op = 0;         // entity operation: its 1-based number in that interface
  std::string name;   // entity operation: its name in the schema
  OpKind kind = OpKind::kClear;
  OpValue value;              // entity operation: its argument
  int32_t attachment_id = 0;  // AttachEntityList, AttachEntity
  std::vector<int> entities;  // AttachEntityList: entity numbers (0 null, -1 unknown)
  int32_t first_code = 0;     // SubmitEvent; DestroyEvent: its argument
  int32_t second_code = 0;    // SubmitEvent
  long long params = -1;      // SubmitEvent: size of the parameter map, -1 for a null map
  bool threw = false;         // the host was told to throw at this call
  // kHostCall: `name` is the function's qualified name, `args` its salient arguments, `answer` what it
  // answered when `answered` (std::monostate stands for a null object).
  std::vector<OpValue> args;
  OpValue answer;
  bool answered = false;
};

struct RecordedEvent {
  enum class Outcome { kOpen, kSubmitted, kDestroyed };
  int number = 0;  // 1-based, in order of creation
  Outcome outcome = Outcome::kOpen;
  std::vector<Call> calls;  // from CreateEvent to SubmitEvent or DestroyEvent
};

// A short text form of a call, for test expectations: `CreateEntity 283 -> #1`,
// `#1 DeviceInfo.2 SetWebServiceValue "ws"`, `AttachEntityList 203 [#1, null]`, `SubmitEvent 3 1 params=0`.
std::string Describe(const Call& call);
std::vector<std::string> Describe(const std::vector<Call>& calls);

class RecordedEntity;

// Gives the machine the fixed facts and clock that every standard host describes (the machine's own
// are back after KstHost::ClearSystemFactOverrides and KstHost::UseSystemClock).
void InstallStandardMachine();

class RecordingHost {
 public:
  // kStandard gives the machine a fixed set of facts and fixes the clock, so that output does not
  // depend on where it runs; kOwnMachine leaves the machine's own facts and the system clock.
  enum class Machine { kStandard, kOwnMachine };
  explicit RecordingHost(Machine machine = Machine::kStandard);
  ~RecordingHost();
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  WebServiceFake& web_service() { return web_service_; }

  // Services made absent or present again (registry, telemetry module, web-service module).
  void SetRegistryAvailable(bool available);
  void SetTelemetryPresent(bool present);
  void SetWebServicePresent(bool present);
  // The service's class object absent from its module, which stays present (or present again, which
  // also makes the module present).
  void SetTelemetryClassObjectPresent(bool present);
  void SetWebServiceClassObjectPresent(bool present);

  // Failures on request.
  void SetCreateEventFails(bool fails);
  void SetCreateEntityFails(int32_t type, bool fails);
  // Makes the n-th CreateEntity of the type from now on answer null, once (1 is the next one); 0
  // disarms.
  void SetCreateEntityFailsAt(int32_t type, int n);
  // Makes the n-th host-visible call from now on throw (1-based); 0 disarms.
  void ThrowAtCall(int n);
  // Makes every DestroyEvent throw (after it is recorded), leaving its event open.
  void SetDestroyEventThrows(bool throws);
  // Runs `hook` at every CreateEvent before it answers, outside the host's lock: a host whose other
  // services change while the library makes an event. Null removes it.
  void SetCreateEventHook(std::function<void()> hook);
  // While false, entities answer every attribute-holder request with null (the request is still
  // recorded). True at start.
  void SetAttributeHoldersPresent(bool present) { attribute_holders_present_ = present; }
  bool AttributeHoldersPresent() const { return attribute_holders_present_; }

  // Every telemetry call so far, in order, across events.
  std::vector<Call> Log() const;
  // Every host call so far, telemetry and the others (kHostCall), in order.
  std::vector<Call> HostCalls() const;
  // How many calls of the function of that name (kHostCall: "KstMQ_GetService", "Kst::GetOSVersion",
  // "ICVWebServiceAPI::FillClientContext", ...) the host has seen in its lifetime, taken or not.
  int HostCallCount(const std::string& name) const;
  // The events created since the last call of TakeEvents, in order; events still open are included
  // (as kOpen) and not returned again. Takes the calls out of the log too (into `host_calls`, when
  // given, every host call in order), and frees what the host kept for the finished events (their
  // entities included), so that a long session stays small.
  std::vector<RecordedEvent> TakeEvents(std::vector<Call>* host_calls = nullptr);
  // The events not yet taken, without taking them.
  std::vector<RecordedEvent> Events() const;
  // How many events are open now: created and neither submitted nor destroyed (taken or not).
  int OpenEventCount() const;

  // Records a call outside the telemetry service (kHostCall), the web-service fake's among them. It
  // belongs to no event and does not count toward ThrowAtCall, which counts telemetry calls.
  void RecordHostCall(Call call);

  // Called by the platform observer the host sets for its lifetime.
  void RecordPlatformCall(const KstHost::PlatformCall& platform);

  // Called by the recording entities.
  void RecordOp(RecordedEntity& entity, const char* iface, int op, const char* name, OpKind kind,
                OpValue value);

 private:
  class Telemetry;
  class Event;
  struct EventState;

  IOrboEvent* CreateEvent();
  void* CreateEntity(int32_t type);
  int32_t SubmitEvent(IOrboEvent* event, int32_t first, int32_t second, EventParams* params);
  void DestroyEvent(Event& event, int32_t flags);
  void AttachEntityList(Event& event, int32_t id, const std::vector<orbo_entity::EntityBase*>& entities);
  void AttachEntity(Event& event, int32_t id, orbo_entity::EntityBase* entity);

  // Appends a call to the log and its event; throws when the call is the armed one, or when `fails`.
  void Record(Call call, bool fails = false);
  EventState* OpenEventOfThisThread();
  int EntityNumber(orbo_entity::EntityBase* base) const;

  mutable std::mutex mutex_;
  WebServiceFake web_service_;
  std::unique_ptr<Telemetry> telemetry_;
  std::map<int, std::unique_ptr<EventState>> events_;  // by number
  std::unordered_map<IOrboEvent*, int> event_numbers_;
  int event_count_ = 0;
  int open_count_ = 0;
  int first_untaken_ = 1;
  std::vector<Call> log_;
  std::map<std::string, int, std::less<>> host_call_counts_;
  std::vector<std::unique_ptr<RecordedEntity>> stray_entities_;  // requested while no event was open
  std::unordered_map<orbo_entity::EntityBase*, RecordedEntity*> entity_by_base_;
  std::map<std::thread::id, int> open_event_;
  bool create_event_fails_ = false;
  std::set<int32_t> failing_types_;
  std::map<int32_t, int> failing_countdowns_;  // by type: CreateEntity calls of it until one fails
  int throw_countdown_ = 0;
  bool destroy_event_throws_ = false;
  std::function<void()> create_event_hook_;
  std::atomic<bool> attribute_holders_present_{true};
};

// State shared by every recording entity.
// It is a virtual base of every recording entity class, initialised by the most derived class only.
class RecordedEntity {
 public:
  RecordedEntity() = default;
  RecordedEntity(RecordingHost* host, int event, int number, int32_t type)
      : host_(host), event_(event), number_(number), type_(type) {}
  virtual ~RecordedEntity() = default;
  virtual orbo_entity::EntityBase* base() = 0;
  virtual void* own_interface() = 0;

  int event() const { return event_; }
  int number() const { return number_; }
  int32_t type() const { return type_; }

 protected:
  void Record(const char* iface, int op, const char* name, OpKind kind, OpValue value) {
    host_->RecordOp(*this, iface, op, name, kind, std::move(value));
  }
  // The entity's answer to an attribute-holder request: records it, then gives the entity's one
  // holder, or null while the host hands out none.
  orbo_entity::AttributeHolder* HolderFor(int32_t selector) {
    Record("EntityBase", 1, "GetAttributeHolder", OpKind::kInt32, selector);
    return host_->AttributeHoldersPresent() ? &holder_ : nullptr;
  }

 private:
  // Records every value set on it as an operation of its entity.
  class Holder final : public orbo_entity::AttributeHolder {
   public:
    explicit Holder(RecordedEntity* entity) : entity_(entity) {}
    void SetValue(int32_t value) override {
      entity_->Record("AttributeHolder", 1, "SetValue", OpKind::kInt32, value);
    }

   private:
    RecordedEntity* entity_;
  };

  Holder holder_{this};
  RecordingHost* host_ = nullptr;
  int event_ = 0;
  int number_ = 0;
  int32_t type_ = 0;
};

// A new recording entity of the schema type, or null for a type the schema does not declare.
std::unique_ptr<RecordedEntity> MakeRecordedEntity(int32_t type, RecordingHost* host, int event, int number);

}  // namespace oet_testing
