#include "DcRecordList.h"

namespace zelconvert {
namespace {

/// In the order of the columns.
template <class R>
std::vector<FieldRef> FieldsOf(R& record) {
  std::vector<FieldRef> fields;
  for (const Column<R>& column : kColumns<R>) {
    const auto add = [&](auto* member) {
      if (member != nullptr) fields.push_back(&(record.**member));
    };
    add(std::get_if<std::wstring R::*>(&column.member));
    add(std::get_if<double R::*>(&column.member));
    add(std::get_if<std::int32_t R::*>(&column.member));
    add(std::get_if<wchar_t R::*>(&column.member));
    add(std::get_if<bool R::*>(&column.member));
  }
  return fields;
}

template <class R>
RecordKind KindOf(const wchar_t* name, const char* structure) {
  RecordKind kind{name, structure, R::kHead, {}, nullptr, nullptr};
  for (const Column<R>& c : kColumns<R>) {
    kind.columns.push_back({c.member.index(), c.start, c.width, c.text, c.decimals, c.real,
                            c.integer, c.choice, c.always, c.constant});
  }
  kind.write = [](CDcFile& file, std::wstring_view subtype, const RecordKind::Fill& fill) {
    R record;
    fill(record.subtype, FieldsOf(record));
    subtype.empty() ? file.Write(record) : file.Write(record, subtype);
  };
  kind.read = [](std::wstring_view line, const RecordKind::Fill& fill) {
    R record;
    CDcFile::Read(line, record);
    fill(record.subtype, FieldsOf(record));
    return record.type - R::kType;
  };
  return kind;
}

}  // namespace

const std::vector<RecordKind>& RecordKinds() {
  static const std::vector<RecordKind> kinds = {
#define KIND(record, name) KindOf<record>(L"" #name, #record)
      KIND(tDC_HEADERRecord, Header),
      KIND(tDC_JOBRecord, Job),
      KIND(tDC_NOTERecord, Note),
      KIND(tDC_POST_PROCESSRecord, PostProcess),
      KIND(tDC_SCALERecord, Scale),
      KIND(tDC_COGORecord, Cogo),
      KIND(tDC_COGO_OLDRecord, CogoOld),
      KIND(tDC_STATIONRecord, Station),
      KIND(tDC_STATION_EXTRecord, StationExt),
      KIND(tDC_BACKSIGHTRecord, Backsight),
      KIND(tDC_BACKSIGHT_EXTRecord, BacksightExt),
      KIND(tDC_GRID_POSITIONRecord, GridPosition),
      KIND(tDC_GPS_POSITIONRecord, GpsPosition),
      KIND(tDC_GPS_POSITION2Record, GpsPosition2),
      KIND(tDC_LOCAL_POSITIONRecord, LocalPosition),
      KIND(tDC_DELETED_POSITIONRecord, DeletedPosition),
      KIND(tDC_VECTORRecord, Vector),
      KIND(tDC_OBSERVATIONRecord, Observation),
      KIND(tDC_OBSERVATION_SIGMARecord, ObservationSigma),
      KIND(tDC_OBSERVATION_TEXTRecord, ObservationText),
      KIND(tDC_ANGLE_DISTANCERecord, AngleDistance),
      KIND(tDC_ANGLE_DISTANCE_KEYEDRecord, AngleDistanceKeyed),
      KIND(tDC_STATION_HEIGHTRecord, StationHeight),
      KIND(tDC_TARGET_HEIGHTRecord, TargetHeight),
      KIND(tDC_NAMERecord, Name),
      KIND(tDC_PROJECTIONRecord, Projection),
      KIND(tDC_PROJECTION_EXTRecord, ProjectionExt),
      KIND(tDC_ELLIPSOIDRecord, Ellipsoid),
      KIND(tDC_LOCAL_SITERecord, LocalSite),
      KIND(tDC_DATUMRecord, Datum),
      KIND(tDC_DATUM_GRIDRecord, DatumGrid),
      KIND(tDC_HORIZONTAL_ADJUSTRecord, HorizontalAdjust),
      KIND(tDC_VERTICAL_ADJUSTRecord, VerticalAdjust),
      KIND(tDC_COORDINATE_SYSTEMRecord, CoordinateSystem),
      KIND(tDC_ZONE_LABELRecord, ZoneLabel),
      KIND(tDC_FEATURE_CODERecord, FeatureCode),
      KIND(tDC_FEATURE_NUMBERRecord, FeatureNumber),
      KIND(tDC_FEATURE_TEXTRecord, FeatureText),
      KIND(tDC_FEATURE_LISTRecord, FeatureList),
      KIND(tDC_FEATURE_MAPRecord, FeatureMap),
      KIND(tDC_TARGET_IDRecord, TargetId),
      KIND(tDC_TARGET_HEIGHTS_Record, TargetHeights),
      KIND(tDC_TARGET_NUMBERRecord, TargetNumber),
      KIND(tDC_TARGET_GRADERecord, TargetGrade),
      KIND(tDC_ANTENNA_OFFSETRecord, AntennaOffset),
      KIND(tDC_ANTENNA_MEASUREMENTRecord, AntennaMeasurement),
      KIND(tDC_STAKED_VALUERecord, StakedValue),
      KIND(tDC_DESIGN_SLOPERecord, DesignSlope),
      KIND(tDC_CATCH_POINTRecord, CatchPoint),
      KIND(tDC_OFFSET_SETTINGRecord, OffsetSetting),
      KIND(tDC_ANTENNA_HEIGHTRecord, AntennaHeight),
      KIND(tDC_VECTOR_SIGMARecord, VectorSigma),
      KIND(tDC_RECEIVER_Record, Receiver),
      KIND(tDC_RECEIVER_EXTRecord, ReceiverExt),
      KIND(tDC_SETUP_Record, Setup),
      KIND(tDC_CB_Record, Cb),
      KIND(tDC_MP_Record, Mp),
      KIND(tDC_MA_Record, Ma),
#undef KIND
  };
  return kinds;
}

}  // namespace zelconvert
