// The host's command bars: its own menus and toolbars, by fixed places, and those that tools add.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/signal.h"
#include "frame/host.h"
#include "platform/clipboard.h"

namespace kolvane::workspace {

class Bar;
class BarControls;
class Bars;

// A button or a popup; a popup has a bar of its own. Members of one that was deleted, or whose bar was,
// raise 91.
class BarControl final : public frame::CommandBarControl, public std::enable_shared_from_this<BarControl> {
 public:
  BarControl(std::weak_ptr<BarControls> parent, frame::ControlKind kind, platform::Clipboard& clipboard);

  frame::ControlKind Kind() override { return checked().kind_; }
  std::string Caption() override { return checked().caption_; }
  void setCaption(std::string_view caption) override { checked().caption_ = caption; }
  std::string TooltipText() override { return checked().tooltip_; }
  void setTooltipText(std::string_view text) override { checked().tooltip_ = text; }
  bool BeginGroup() override { return checked().beginGroup_; }
  void setBeginGroup(bool begin) override { checked().beginGroup_ = begin; }
  bool Enabled() override { return checked().enabled_; }
  void setEnabled(bool enabled) override { checked().enabled_ = enabled; }
  bool Visible() override { return checked().visible_; }
  void setVisible(bool visible) override { checked().visible_ = visible; }
  int Index() override;
  void PasteFace() override;
  std::string Face() override { return checked().face_; }
  std::shared_ptr<frame::CommandBarControls> Controls() override;
  void Delete() override;

  [[nodiscard]] base::Subscription onClick(frame::CommandBarClick click);
  // What a click of the user does: calls the handlers in the order of their connection until one says that it
  // has handled the click. A control that is disabled or hidden raises 5.
  void click();

  // True when `name`, without "&" and regard to case, is the caption; a control without a caption goes by its
  // tip.
  bool isCalled(std::string_view name) const;
  // Names the bar of a popup too.
  void makeMenu(std::string_view caption);
  const std::shared_ptr<Bar>& bar() const { return bar_; }
  void drop();  // as Delete, from above

 private:
  BarControl& checked();

  std::weak_ptr<BarControls> parent_;
  frame::ControlKind kind_;
  platform::Clipboard& clipboard_;
  std::shared_ptr<Bar> bar_;
  std::string caption_;
  std::string tooltip_;
  std::string face_;
  bool beginGroup_ = false;
  bool enabled_ = true;
  bool visible_ = true;
  bool deleted_ = false;
  base::Signal<const std::shared_ptr<frame::CommandBarControl>&, bool&, bool&> clicked_;
};

class BarControls final : public frame::CommandBarControls, public std::enable_shared_from_this<BarControls> {
 public:
  explicit BarControls(platform::Clipboard& clipboard) : clipboard_(clipboard) {}

  int Count() override;
  std::shared_ptr<frame::CommandBarControl> Item(int index) override;
  std::shared_ptr<frame::CommandBarControl> Item(std::string_view name) override;
  std::shared_ptr<frame::CommandBarControl> Add(frame::ControlKind kind, int id, std::string_view parameter,
                                                int before, bool temporary) override;

  int indexOf(const BarControl& control) const;
  void remove(const BarControl& control);
  void drop();
  const std::vector<std::shared_ptr<BarControl>>& list() const { return list_; }

 private:
  void check() const;

  platform::Clipboard& clipboard_;
  std::vector<std::shared_ptr<BarControl>> list_;
  bool deleted_ = false;
};

class Bar final : public frame::CommandBar, public std::enable_shared_from_this<Bar> {
 public:
  Bar(std::weak_ptr<Bars> parent, std::string_view name, bool builtIn, bool visible,
      platform::Clipboard& clipboard);

  std::string Name() override { return checked().name_; }
  int Index() override;
  std::shared_ptr<frame::CommandBarControls> Controls() override { return checked().controls_; }
  int Left() override { return checked().left_; }
  int Top() override { return checked().top_; }
  int Position() override { return checked().position_; }
  int RowIndex() override { return checked().rowIndex_; }
  void setLeft(int value) override { checked().left_ = value; }
  void setTop(int value) override { checked().top_ = value; }
  void setPosition(int value) override { checked().position_ = value; }
  void setRowIndex(int value) override { checked().rowIndex_ = value; }
  bool Visible() override { return checked().visible_; }
  void setVisible(bool visible) override { checked().visible_ = visible; }
  // The host's own bars cannot be deleted: 5.
  void Delete() override;

  bool isCalled(std::string_view name) const;
  void rename(std::string_view name) { name_ = name; }
  const std::shared_ptr<BarControls>& controls() const { return controls_; }
  void drop();

 private:
  Bar& checked();

  std::weak_ptr<Bars> parent_;
  std::string name_;
  std::shared_ptr<BarControls> controls_;
  int left_ = 0;
  int top_ = 0;
  int position_ = 1;  // docked at the top
  int rowIndex_ = 0;
  bool builtIn_;
  bool visible_;
  bool deleted_ = false;
};

class Bars final : public frame::CommandBars, public std::enable_shared_from_this<Bars> {
 public:
  // With the host's own bars and menus.
  static std::shared_ptr<Bars> create(platform::Clipboard& clipboard);

  int Count() override;
  std::shared_ptr<frame::CommandBar> Item(int index) override;
  std::shared_ptr<frame::CommandBar> Item(std::string_view name) override;
  std::shared_ptr<frame::CommandBar> Add(std::string_view name) override;
  std::shared_ptr<frame::CommandBar> ActiveMenuBar() override;

  int indexOf(const Bar& bar) const;  // 0 for the bar of a popup
  void remove(const Bar& bar);
  // Ends all bars: objects that are still held raise 91.
  void drop();

 private:
  explicit Bars(platform::Clipboard& clipboard) : clipboard_(clipboard) {}
  void check() const;

  platform::Clipboard& clipboard_;
  std::vector<std::shared_ptr<Bar>> list_;  // empty once dropped
};

}  // namespace kolvane::workspace
