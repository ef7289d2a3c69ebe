#pragma once

#include "platform/database.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc::testing {

// The rows that a statement gives back: column names, then the rows' values.
struct FakeRows {
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
    std::int32_t affected = 0;
};

// Without an `execute` there is no database: every request fails with 429.
class FakeDatabase : public Database {
  public:
    // Answers one statement; may throw RuntimeError, as a driver does.
    std::function<FakeRows(const std::string& statement)> execute;
    std::string connectString = "DSN=Orvane;UID=suite;PWD=";
    std::string labelString = "DSN=Orvane;UID=label;PWD=";
    // In order: "Open " + connect string, "BeginTrans", "CommitTrans", "Close", and the
    // statements as they are.
    std::vector<std::string> log;
    std::vector<std::int32_t> kindsAsked;

    std::unique_ptr<Connection> createConnection() override {
        requireDatabase();
        return std::make_unique<FakeConnection>(*this);
    }
    std::string GetConnectString(std::int32_t kind) override {
        requireDatabase();
        kindsAsked.push_back(kind);
        return connectString;
    }
    std::string labelConnectString() override {
        requireDatabase();
        return labelString;
    }

  private:
    void requireDatabase() const {
        if (!execute) throw RuntimeError(ErrorNumber::CannotCreateObject);
    }

    class FakeRecordset : public Recordset {
      public:
        explicit FakeRecordset(FakeRows rows) : rows_(std::move(rows)) {}
        bool EndOfFile() override { return row_ >= rows_.rows.size(); }
        void MoveNext() override { ++row_; }
        Field& Item(const std::string& column) override {
            for (std::size_t i = 0; i < rows_.columns.size() && !EndOfFile(); ++i) {
                if (!equalIgnoringCase(rows_.columns[i], column)) continue;
                field_.value = rows_.rows[row_].at(i);
                return field_;
            }
            throw RuntimeError(3265, "Item cannot be found in the collection");
        }

      private:
        struct FakeField : Field {
            std::string Value() override { return value; }
            std::string value;
        };
        FakeRows rows_;
        std::size_t row_ = 0;
        FakeField field_;
    };

    class FakeConnection : public Connection {
      public:
        explicit FakeConnection(FakeDatabase& owner) : owner_(owner) {}
        void ConnectionString(const std::string& connectString) override {
            connectString_ = connectString;
        }
        void Open(const std::string& connectString, const std::string&, const std::string&,
                  int) override {
            owner_.log.push_back("Open " +
                                 (connectString.empty() ? connectString_ : connectString));
        }
        std::unique_ptr<Recordset> Execute(const std::string& commandText,
                                           std::int32_t* recordsAffected, int) override {
            owner_.log.push_back(commandText);
            FakeRows rows = owner_.execute(commandText);
            if (recordsAffected) *recordsAffected = rows.affected;
            return std::make_unique<FakeRecordset>(std::move(rows));
        }
        void BeginTrans() override { owner_.log.emplace_back("BeginTrans"); }
        void CommitTrans() override { owner_.log.emplace_back("CommitTrans"); }
        void Close() override { owner_.log.emplace_back("Close"); }

      private:
        FakeDatabase& owner_;
        std::string connectString_;
    };
};

}  // namespace headerdtc::testing
