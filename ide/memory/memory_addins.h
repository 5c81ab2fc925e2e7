// The add-ins registered with the in-memory IDE (VBE.Addins).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::ide::memory {

class MemoryAddIn : public IAddIn {
 public:
  MemoryAddIn(std::string prog_id, std::string description, bool connected)
      : prog_id_(std::move(prog_id)),
        description_(std::move(description)),
        connected_(connected) {}

  std::string ProgId() override { return prog_id_; }
  std::string Description() override { return description_; }
  std::string Guid() override { return "{" + prog_id_ + "}"; }
  bool Connect() override { return connected_; }
  void SetConnect(bool connect) override { connected_ = connect; }

 private:
  std::string prog_id_;
  std::string description_;
  bool connected_;
};

class MemoryAddins : public IAddins {
 public:
  int Count() override { return static_cast<int>(add_ins_.size()); }
  std::shared_ptr<IAddIn> Item(int index) override;
  // By ProgID; an add-in that is not registered is error 9.
  std::shared_ptr<IAddIn> Item(std::string_view prog_id) override;
  void Update() override {}

  std::shared_ptr<MemoryAddIn> Register(std::string prog_id, std::string description,
                                        bool connected);

 private:
  std::vector<std::shared_ptr<MemoryAddIn>> add_ins_;
};

}  // namespace tavrin::ide::memory
