// A component's file in, edits through the host's interfaces, the file's text out.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "workspace/designer_host.h"

namespace kolvane::workspace::test {

// The file's lines are written with "\n" in the samples and end with CR LF in the file.
inline std::string crLf(std::string_view text) { return base::replaceAll(text, "\n", "\r\n"); }
inline std::string lf(std::string_view text) { return base::replaceAll(text, "\r\n", "\n"); }

class DesignerFile {
 public:
  explicit DesignerFile(std::string_view sample) : DesignerFile(crLf(sample), 0) {}
  static DesignerFile exactly(std::string bytes) { return DesignerFile(std::move(bytes), 0); }

  ComponentHeader& header() { return *header_; }
  const std::vector<Problem>& problems() const { return *problems_; }
  std::string code() const { return text_->substr(header_->codeOffset()); }
  std::string bytes() const {
    std::string out;
    header_->appendBytes(out);
    return out + code();
  }
  std::string text() const { return lf(bytes()); }

  // The host over the header, which writes down what it tells.
  DesignerHost& host() {
    if (host_ == nullptr) host_ = std::make_unique<DesignerHost>(*header_, callbacks(), nullptr);
    return *host_;
  }
  void closeHost() { host_.reset(); }
  std::shared_ptr<frame::VBControls> controls() { return host().form()->VBControls(); }
  std::shared_ptr<frame::VBControl> control(std::string_view name) { return controls()->Item(name); }
  std::shared_ptr<frame::Property> property(std::string_view control, std::string_view name) {
    if (control.empty()) return host().properties()->Item(name);
    return this->control(control)->Properties()->Item(name);
  }
  frame::Value get(std::string_view control, std::string_view name) {
    return property(control, name)->value();
  }
  void set(std::string_view control, std::string_view name, const frame::Value& value) {
    property(control, name)->setValue(value);
  }

  // "added Command1", "renamed txtB from txtA(-1)", "selected cmdOK", "edited", one after the other.
  std::string takeLog() { return std::exchange(*log_, {}); }
  void refuseEdits() { *locked_ = true; }

  static std::string nameOf(const std::shared_ptr<frame::VBControl>& control) {
    return std::get<std::string>(control->Properties()->Item("Name")->value());
  }

 private:
  DesignerFile(std::string bytes, int)
      : text_(std::make_shared<const std::string>(std::move(bytes))),
        problems_(std::make_unique<std::vector<Problem>>()),
        header_(std::make_unique<ComponentHeader>(
            ComponentHeader::parse(text_, *text_, "sample.frm", *problems_))) {}

  DesignerCallbacks callbacks() {
    DesignerCallbacks told;
    const auto log = log_;
    const auto note = [log](const std::string& what) { log->append(log->empty() ? "" : ", ").append(what); };
    told.canEdit = [locked = locked_] {
      if (*locked) throw base::Error(base::errors::kModuleNotEditable);
    };
    told.edited = [note] { note("edited"); };
    told.rename = [header = header_.get(), note](std::string_view name) {
      header->rename(name);
      note("component renamed");
    };
    told.controlAdded = [note](const auto& control) { note("added " + nameOf(control)); };
    told.controlRemoved = [note](const auto& control) { note("removed " + nameOf(control)); };
    told.controlRenamed = [note](const auto& control, const std::string& oldName, int oldIndex) {
      note("renamed " + nameOf(control) + " from " + oldName + "(" + std::to_string(oldIndex) + ")");
    };
    told.selectionChanged = [note](const auto& control, bool added) {
      note((added ? "selected " : "deselected ") + nameOf(control));
    };
    return told;
  }

  std::shared_ptr<const std::string> text_;
  std::unique_ptr<std::vector<Problem>> problems_;
  std::unique_ptr<ComponentHeader> header_;
  std::shared_ptr<std::string> log_ = std::make_shared<std::string>();
  std::shared_ptr<bool> locked_ = std::make_shared<bool>(false);
  std::unique_ptr<DesignerHost> host_;
};

// The number of the error that the call raises; 0 when it raises none.
template <typename Call>
long errorOf(Call&& call) {
  try {
    call();
    return 0;
  } catch (const base::Error& error) {
    return error.number();
  }
}

}  // namespace kolvane::workspace::test
