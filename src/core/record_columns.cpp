// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/record_columns.h"

namespace marlinset {
namespace {

// The table has only one pair of limits, that of the first line; it applies to all lines that a unit writes.
constexpr std::string_view kVitcMin = "VITC1 Line1Num Min";
constexpr std::string_view kVitcMax = "VITC1 Line1Num Max";

constexpr RecordColumn<VideoStandardRec> kVideoStandard[] = {
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

constexpr RecordColumn<CharMaxPosRec> kCharMaxPos[] = {
    {"Description", &CharMaxPosRec::Description},   {"Video Standard", &CharMaxPosRec::VideoStandard},
    {"HardwareID", &CharMaxPosRec::HardwareID},     {"Min Vert Posn", &CharMaxPosRec::MinVertPosn},
    {"Max Vert Posn", &CharMaxPosRec::MaxVertPosn}, {"Min Hor Posn", &CharMaxPosRec::MinHorPosn},
    {"Max Hor Posn", &CharMaxPosRec::MaxHorPosn},
};

constexpr RecordColumn<CharStyleRec> kCharStyle[] = {
    {"Char Style ID", &CharStyleRec::CharStyleID},
    {"Description", &CharStyleRec::Description},
    {"Code", &CharStyleRec::Code},
    {"Order", &CharStyleRec::Order},
    {"Ignore1", &CharStyleRec::Ignore1},
};

constexpr RecordColumn<CharSizeRec> kCharSize[] = {
    {"Char Size ID", &CharSizeRec::CharSizeID},
    {"Description", &CharSizeRec::Description},
    {"Code", &CharSizeRec::Code},
    {"Ignore1", &CharSizeRec::Ignore1},
};

constexpr RecordColumn<CodedItemRec> kCodedItem[] = {
    {"Description", &CodedItemRec::Description},
    {"Code", &CodedItemRec::Code},
    {"Ignore1", &CodedItemRec::Ignore1},
};

constexpr RecordColumn<DownConvProcessRec> kDownConvProcess[] = {
    {"Order", &DownConvProcessRec::Order},     {"Description", &DownConvProcessRec::Description},
    {"Code", &DownConvProcessRec::Code},       {"Video Standard", &DownConvProcessRec::VideoStandard},
    {"Ignore1", &DownConvProcessRec::Ignore1},
};

constexpr RecordColumn<OrderedCodeRec> kOrderedCode[] = {
    {"Order", &OrderedCodeRec::Order},
    {"Description", &OrderedCodeRec::Description},
    {"Code", &OrderedCodeRec::Code},
    {"Ignore1", &OrderedCodeRec::Ignore1},
};

constexpr RecordColumn<CodeSourceRec> kCodeSource[] = {
    {"Field Value", &CodeSourceRec::FieldValue},
    {"Description", &CodeSourceRec::Description},
    {"Gen Number", &CodeSourceRec::GenNumber},
    {"Drop Frame", &CodeSourceRec::DropFrame},
};

constexpr RecordColumn<TimeCodeAssignmentRec> kTimeCodeAssignment[] = {
    {"Name", &TimeCodeAssignmentRec::Name},
    {"Order", &TimeCodeAssignmentRec::Order},
    {"VITC Mode", &TimeCodeAssignmentRec::VITCMode},
    {"Field Name", &TimeCodeAssignmentRec::FieldName},
    {"Field Value", &TimeCodeAssignmentRec::FieldValue},
    {"Ignore1", &TimeCodeAssignmentRec::Ignore1},
};

constexpr RecordColumn<OperatingModeRec> kOperatingMode[] = {
    {"ModeId", &OperatingModeRec::ModeId},   {"Name", &OperatingModeRec::Name},
    {"Order", &OperatingModeRec::Order},     {"Description", &OperatingModeRec::Description},
    {"Ignore1", &OperatingModeRec::Ignore1},
};

constexpr RecordColumn<HelpMessageRec> kHelpMessage[] = {
    {"Module Ident", &HelpMessageRec::ModuleIdent},
    {"Message Number", &HelpMessageRec::MessageNumber},
    {"Message Text", &HelpMessageRec::MessageText},
};

constexpr RecordColumn<CharWindowRec> kCharWindow[] = {
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

constexpr RecordColumn<SystemParameterRec> kSystemParameter[] = {
    {"Class", &SystemParameterRec::Class},
    {"Parameter", &SystemParameterRec::Parameter},
    {"Description", &SystemParameterRec::Description},
    {"Value", &SystemParameterRec::Value},
};

}  // namespace

constinit const RecordColumns<VideoStandardRec> VideoStandardRec::kColumns = kVideoStandard;
constinit const RecordColumns<CharMaxPosRec> CharMaxPosRec::kColumns = kCharMaxPos;
constinit const RecordColumns<CharStyleRec> CharStyleRec::kColumns = kCharStyle;
constinit const RecordColumns<CharSizeRec> CharSizeRec::kColumns = kCharSize;
constinit const RecordColumns<CodedItemRec> CodedItemRec::kColumns = kCodedItem;
constinit const RecordColumns<DownConvProcessRec> DownConvProcessRec::kColumns = kDownConvProcess;
constinit const RecordColumns<OrderedCodeRec> OrderedCodeRec::kColumns = kOrderedCode;
constinit const RecordColumns<CodeSourceRec> CodeSourceRec::kColumns = kCodeSource;
constinit const RecordColumns<TimeCodeAssignmentRec> TimeCodeAssignmentRec::kColumns = kTimeCodeAssignment;
constinit const RecordColumns<OperatingModeRec> OperatingModeRec::kColumns = kOperatingMode;
constinit const RecordColumns<HelpMessageRec> HelpMessageRec::kColumns = kHelpMessage;
constinit const RecordColumns<CharWindowRec> CharWindowRec::kColumns = kCharWindow;
constinit const RecordColumns<SystemParameterRec> SystemParameterRec::kColumns = kSystemParameter;

}  // namespace marlinset
