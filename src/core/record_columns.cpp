// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/record_columns.h"

namespace marlinset {
namespace {

// The table has only one pair of limits, that of the first line; it applies to all lines that a unit writes.
constexpr std::string_view kVitcMin = "VITC1 Line1Num Min";
constexpr std::string_view kVitcMax = "VITC1 Line1Num Max";

constexpr RecordColumn<VideoStandardRec> kVideoStandardColumns[] = {
    {"Description", &VideoStandardRec::Description},
    {"Code", &VideoStandardRec::Code},
    {"Order", &VideoStandardRec::Order},
    {"Ignore1", &VideoStandardRec::Ignore1},
    {"Frame Rate", &VideoStandardRec::FrameRate},
    {kVitcMin, &VideoStandardRec::Vitc1Min},
    {kVitcMax, &VideoStandardRec::Vitc1Max},
    {"VITC1 Line1Num Default1", &VideoStandardRec::Vitc1Default1},
    {"VITC1 Line1Num Default2", &VideoStandardRec::Vitc1Default2},
    {kVitcMin, &VideoStandardRec::Vitc2Line1Min},
    {kVitcMax, &VideoStandardRec::Vitc2Line1Max},
    {"VITC2 Line1Num Default1", &VideoStandardRec::Vitc2Line1Default1},
    {"VITC2 Line1Num Default2", &VideoStandardRec::Vitc2Line1Default2},
    {kVitcMin, &VideoStandardRec::Vitc2Line2Min},
    {kVitcMax, &VideoStandardRec::Vitc2Line2Max},
    {"VITC2 Line2Num Default1", &VideoStandardRec::Vitc2Line2Default1},
    {"VITC2 Line2Num Default2", &VideoStandardRec::Vitc2Line2Default2},
    {kVitcMin, &VideoStandardRec::Vitc3Min},
    {kVitcMax, &VideoStandardRec::Vitc3Max},
    {"VITC3 Line1Num Default1", &VideoStandardRec::Vitc3Default1},
    {"VITC3 Line1Num Default2", &VideoStandardRec::Vitc3Default2},
    {"ANC LineNum Min", &VideoStandardRec::AncMin},
    {"ANC LineNum Max", &VideoStandardRec::AncMax},
    {"ANC LineNum Default", &VideoStandardRec::AncDefault},
};

constexpr RecordColumn<CharMaxPosRec> kCharMaxPosColumns[] = {
    {"Description", &CharMaxPosRec::Description},   {"Video Standard", &CharMaxPosRec::VideoStandard},
    {"HardwareID", &CharMaxPosRec::HardwareID},     {"Min Vert Posn", &CharMaxPosRec::MinVertPosn},
    {"Max Vert Posn", &CharMaxPosRec::MaxVertPosn}, {"Min Hor Posn", &CharMaxPosRec::MinHorPosn},
    {"Max Hor Posn", &CharMaxPosRec::MaxHorPosn},
};

constexpr RecordColumn<CharStyleRec> kCharStyleColumns[] = {
    {"Char Style ID", &CharStyleRec::CharStyleID},
    {"Description", &CharStyleRec::Description},
    {"Code", &CharStyleRec::Code},
    {"Order", &CharStyleRec::Order},
    {"Ignore1", &CharStyleRec::Ignore1},
};

constexpr RecordColumn<CharSizeRec> kCharSizeColumns[] = {
    {"Char Size ID", &CharSizeRec::CharSizeID},
    {"Description", &CharSizeRec::Description},
    {"Code", &CharSizeRec::Code},
    {"Ignore1", &CharSizeRec::Ignore1},
};

constexpr RecordColumn<CodedItemRec> kCodedItemColumns[] = {
    {"Description", &CodedItemRec::Description},
    {"Code", &CodedItemRec::Code},
    {"Ignore1", &CodedItemRec::Ignore1},
};

constexpr RecordColumn<DownConvProcessRec> kDownConvProcessColumns[] = {
    {"Order", &DownConvProcessRec::Order},     {"Description", &DownConvProcessRec::Description},
    {"Code", &DownConvProcessRec::Code},       {"Video Standard", &DownConvProcessRec::VideoStandard},
    {"Ignore1", &DownConvProcessRec::Ignore1},
};

constexpr RecordColumn<OrderedCodeRec> kOrderedCodeColumns[] = {
    {"Order", &OrderedCodeRec::Order},
    {"Description", &OrderedCodeRec::Description},
    {"Code", &OrderedCodeRec::Code},
    {"Ignore1", &OrderedCodeRec::Ignore1},
};

constexpr RecordColumn<CodeSourceRec> kCodeSourceColumns[] = {
    {"Field Value", &CodeSourceRec::FieldValue},
    {"Description", &CodeSourceRec::Description},
    {"Gen Number", &CodeSourceRec::GenNumber},
    {"Drop Frame", &CodeSourceRec::DropFrame},
};

constexpr RecordColumn<TimeCodeAssignmentRec> kTimeCodeAssignmentColumns[] = {
    {"Name", &TimeCodeAssignmentRec::Name},
    {"Order", &TimeCodeAssignmentRec::Order},
    {"VITC Mode", &TimeCodeAssignmentRec::VITCMode},
    {"Field Name", &TimeCodeAssignmentRec::FieldName},
    {"Field Value", &TimeCodeAssignmentRec::FieldValue},
    {"Ignore1", &TimeCodeAssignmentRec::Ignore1},
};

constexpr RecordColumn<OperatingModeRec> kOperatingModeColumns[] = {
    {"ModeId", &OperatingModeRec::ModeId},   {"Name", &OperatingModeRec::Name},
    {"Order", &OperatingModeRec::Order},     {"Description", &OperatingModeRec::Description},
    {"Ignore1", &OperatingModeRec::Ignore1},
};

constexpr RecordColumn<HelpMessageRec> kHelpMessageColumns[] = {
    {"Module Ident", &HelpMessageRec::ModuleIdent},
    {"Message Number", &HelpMessageRec::MessageNumber},
    {"Message Text", &HelpMessageRec::MessageText},
};

constexpr RecordColumn<CharWindowRec> kCharWindowColumns[] = {
    {"Name", &CharWindowRec::Name},
    {"Number", &CharWindowRec::Number},
    {"On", &CharWindowRec::On},
    {"Top", &CharWindowRec::Top},
    {"Left", &CharWindowRec::Left},
    {"Length", &CharWindowRec::Length},
    {"Slate On", &CharWindowRec::SlateOn},
    {"Symbol On", &CharWindowRec::SymbolOn},
    {"Symbol Length", &CharWindowRec::SymbolLength},
    {"Field On", &CharWindowRec::FieldOn},
    {"Field Length", &CharWindowRec::FieldLength},
    {"Default Hor Posn", &CharWindowRec::DefaultHorPosn},
    {"Default Vert Posn", &CharWindowRec::DefaultVertPosn},
    {"Default on/off", &CharWindowRec::DefaultOnOff},
    {"Default Slate on/off", &CharWindowRec::DefaultSlateOnOff},
    {"Default Symbol on/off", &CharWindowRec::DefaultSymbolOnOff},
    {"Default Field on/off", &CharWindowRec::DefaultFieldOnOff},
    {"Ignore1", &CharWindowRec::Ignore1},
    {"Double Height", &CharWindowRec::DoubleHeight},
};

constexpr RecordColumn<SystemParameterRec> kSystemParameterColumns[] = {
    {"Class", &SystemParameterRec::Class},
    {"Parameter", &SystemParameterRec::Parameter},
    {"Description", &SystemParameterRec::Description},
    {"Value", &SystemParameterRec::Value},
};

}  // namespace

constinit const RecordColumns<VideoStandardRec> VideoStandardRec::kColumns = kVideoStandardColumns;
constinit const RecordColumns<CharMaxPosRec> CharMaxPosRec::kColumns = kCharMaxPosColumns;
constinit const RecordColumns<CharStyleRec> CharStyleRec::kColumns = kCharStyleColumns;
constinit const RecordColumns<CharSizeRec> CharSizeRec::kColumns = kCharSizeColumns;
constinit const RecordColumns<CodedItemRec> CodedItemRec::kColumns = kCodedItemColumns;
constinit const RecordColumns<DownConvProcessRec> DownConvProcessRec::kColumns = kDownConvProcessColumns;
constinit const RecordColumns<OrderedCodeRec> OrderedCodeRec::kColumns = kOrderedCodeColumns;
constinit const RecordColumns<CodeSourceRec> CodeSourceRec::kColumns = kCodeSourceColumns;
constinit const RecordColumns<TimeCodeAssignmentRec> TimeCodeAssignmentRec::kColumns =
    kTimeCodeAssignmentColumns;
constinit const RecordColumns<OperatingModeRec> OperatingModeRec::kColumns = kOperatingModeColumns;
constinit const RecordColumns<HelpMessageRec> HelpMessageRec::kColumns = kHelpMessageColumns;
constinit const RecordColumns<CharWindowRec> CharWindowRec::kColumns = kCharWindowColumns;
constinit const RecordColumns<SystemParameterRec> SystemParameterRec::kColumns = kSystemParameterColumns;

}  // namespace marlinset
