<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>BandwidthCameraConfigureDialog</name>
    <message>
        <source>Features %1</source>
        <translation>기능 %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>구성</translation>
    </message>
</context>
<context>
    <name>BandwidthDialog</name>
    <message>
        <source>Bandwidth Manager</source>
        <translation>대역폭 관리자</translation>
    </message>
    <message>
        <source>&lt;p&gt;zenta has detected one or more GigE camera(s).The transport layer settings &lt;strong&gt;Inter-Packet Delay&lt;/strong&gt; and &lt;strong&gt;Packet Size&lt;/strong&gt; can have an impact on the performance of your GigE camera(s).&lt;/p&gt;&lt;p&gt;To automatically optimize these settings for all cameras in your environment, click the &lt;strong&gt;Optimize GigE Bandwidth&lt;/strong&gt; button in this dialog.This ensures optimum performance of your GigE cameras.&lt;/p&gt;</source>
        <translation>&lt;p&gt;zenta에서 하나 이상의 GigE 카메라를 감지했습니다. 전송 계층 설정인 &lt;strong&gt;패킷 간 지연&lt;/strong&gt; 및 &lt;strong&gt;패킷 크기&lt;/strong&gt;는 GigE 카메라의 성능에 영향을 줄 수 있습니다.&lt;/p&gt;&lt;p&gt;사용 중인 환경의 모든 카메라에 대해 이 설정을 자동으로 최적화하려면 이 대화 상자에서 &lt;strong&gt;GigE 대역폭 최적화&lt;/strong&gt; 버튼을 클릭하십시오. 이렇게 하면 GigE 카메라가 최적의 성능으로 동작합니다.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Optimize GigE Bandwidth</source>
        <translation>GigE 대역폭 최적화</translation>
    </message>
    <message>
        <source>Stop Bandwidth analysis.</source>
        <translation>대역폭 분석을 중지합니다.</translation>
    </message>
    <message>
        <source>Bandwidth analysis has been started.</source>
        <translation>대역폭 분석이 시작되었습니다.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt;, &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings have been optimized.</source>
        <translation>&lt;b&gt;패킷 크기&lt;/b&gt;, &lt;b&gt;패킷 간 지연&lt;/b&gt; 및 &lt;b&gt;프레임 전송 지연&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; and &lt;b&gt;Inter-Packet Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;패킷 크기&lt;/b&gt; 및 &lt;b&gt;패킷 간 지연&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;패킷 크기&lt;/b&gt; 및 &lt;b&gt;프레임 전송 지연&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Packet Size&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;패킷 크기&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Frame Transmission Delay&lt;/b&gt; settings has been optimized.</source>
        <translation>&lt;b&gt;패킷 간 지연&lt;/b&gt; 및 &lt;b&gt;프레임 전송 지연&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Inter-Packet Delay&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;패킷 간 지연&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>&lt;br&gt;These cameras did not answer and could not be set: %1</source>
        <translation>&lt;br&gt;다음 카메라가 응답하지 않아 설정할 수 없었습니다: %1</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Frame Transmission Delay&lt;/b&gt; setting has been optimized</source>
        <translation>&lt;b&gt;프레임 전송 지연&lt;/b&gt; 설정이 최적화되었습니다.</translation>
    </message>
    <message>
        <source>Settings have been checked and are ok. No changes have been made.</source>
        <translation>설정을 확인했으며 문제가 없습니다. 변경된 내용은 없습니다.</translation>
    </message>
    <message>
        <source>&lt;br&gt;The &lt;b&gt;Packet Size&lt;/b&gt; setting has been increased to its maximum value. If you want to increase performance further, enable jumbo frames on your network adapter.</source>
        <translation>&lt;br&gt;&lt;b&gt;패킷 크기&lt;/b&gt; 설정을 최대값으로 높였습니다. 성능을 더 높이려면 네트워크 어댑터에서 점보 프레임을 활성화하십시오.</translation>
    </message>
    <message>
        <source>&lt;br&gt;Currently, there are too many cameras connected to your network adapter. The Bandwidth Manager can&apos;t optimize the performance under these conditions. Try disconnecting one or more cameras to resolve this.</source>
        <translation>&lt;br&gt;현재 네트워크 어댑터에 연결된 카메라가 너무 많습니다. 이 상태에서는 대역폭 관리자가 성능을 최적화할 수 없습니다. 카메라를 하나 이상 분리하여 문제를 해결하십시오.</translation>
    </message>
    <message>
        <source>&lt;br&gt;The &lt;b&gt;Packet Size&lt;/b&gt; setting could not be optimized. A default value of 1500 has been set.</source>
        <translation>&lt;br&gt;&lt;b&gt;패킷 크기&lt;/b&gt; 설정을 최적화할 수 없습니다. 기본값 1500이 설정되었습니다.</translation>
    </message>
    <message>
        <source>All GigE cameras are being optimized.</source>
        <translation>모든 GigE 카메라를 최적화하는 중입니다.</translation>
    </message>
    <message>
        <source>Selected GigE cameras are being optimized.</source>
        <translation>선택한 GigE 카메라를 최적화하는 중입니다.</translation>
    </message>
    <message>
        <source>No camera connected!&lt;br/&gt;Connect at least one USB camera to the computer. After the camera has been detected by the zenta Viewer, you are ready to use the Bandwidth Manager.</source>
        <translation>연결된 카메라가 없습니다!&lt;br/&gt;컴퓨터에 USB 카메라를 하나 이상 연결하십시오. zenta Viewer에서 카메라를 감지하면 대역폭 관리자를 사용할 수 있습니다.</translation>
    </message>
    <message>
        <source>Analyzing bandwidth.&lt;br/&gt;You can limit the amount of bandwidth used by a camera using the controls in the &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; column.&lt;br/&gt;Click &lt;b&gt;Stop Analysis&lt;/b&gt; to stop the analysis.</source>
        <translation>대역폭을 분석하는 중입니다.&lt;br/&gt;&lt;b&gt;대역폭(MB/s)&lt;/b&gt; 열의 컨트롤을 사용하여 카메라가 사용하는 대역폭을 제한할 수 있습니다.&lt;br/&gt;분석을 중지하려면 &lt;b&gt;분석 중지&lt;/b&gt;를 클릭하십시오.</translation>
    </message>
    <message>
        <source>&lt;br/&gt;&lt;br/&gt;&lt;b&gt;No camera is being measured.&lt;/b&gt; A camera lost during the analysis is measured again when it comes back.</source>
        <translation>&lt;br/&gt;&lt;br/&gt;&lt;b&gt;측정 중인 카메라가 없습니다.&lt;/b&gt; 분석 중에 연결이 끊긴 카메라는 다시 연결되면 다시 측정됩니다.</translation>
    </message>
    <message>
        <source>B/s</source>
        <translation>B/s</translation>
    </message>
    <message>
        <source>The current value for &lt;b&gt;%1&lt;/b&gt; is: &lt;b&gt;%2&lt;/b&gt; (%3)&lt;br/&gt;Tip: If you want to preserve the current camera settings, save them to a user set.</source>
        <translation>&lt;b&gt;%1&lt;/b&gt;의 현재 값: &lt;b&gt;%2&lt;/b&gt; (%3)&lt;br/&gt;팁: 현재 카메라 설정을 유지하려면 사용자 세트에 저장하십시오.</translation>
    </message>
    <message>
        <source>The &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; value of GigE cameras shows the approximate bandwidth that is available for the individual network adapter. It is influenced by the &lt;b&gt;Inter-Packet Delay&lt;/b&gt; and &lt;b&gt;Packet Size&lt;/b&gt; settings in the &lt;b&gt;Transport Layer&lt;/b&gt; category.&lt;br/&gt;If you enable jumbo frames on your network adapter and increase the packet size of your camera you can increase the overall performance of your system.&lt;br/&gt;&lt;br/&gt;The &lt;b&gt;Bandwidth (MB/s)&lt;/b&gt; value of USB cameras corresponds to the &lt;b&gt;Device Link Throughput Limit&lt;/b&gt; value in the &lt;b&gt;Device Control&lt;/b&gt; category.&lt;br/&gt;&lt;br/&gt;Select the cameras whose bandwidth you want to analyze.&lt;br/&gt;Click &lt;b&gt;Start Analysis&lt;/b&gt; to start the analysis.&lt;br/&gt;&lt;br/&gt;Tip: If you want to preserve the current camera settings, save them to a user set.&lt;br/&gt;</source>
        <translation>GigE 카메라의 &lt;b&gt;대역폭(MB/s)&lt;/b&gt; 값은 개별 네트워크 어댑터에서 사용할 수 있는 대략적인 대역폭을 나타냅니다. 이 값은 &lt;b&gt;전송 계층&lt;/b&gt; 범주의 &lt;b&gt;패킷 간 지연&lt;/b&gt; 및 &lt;b&gt;패킷 크기&lt;/b&gt; 설정의 영향을 받습니다.&lt;br/&gt;네트워크 어댑터에서 점보 프레임을 활성화하고 카메라의 패킷 크기를 늘리면 시스템의 전체 성능을 높일 수 있습니다.&lt;br/&gt;&lt;br/&gt;USB 카메라의 &lt;b&gt;대역폭(MB/s)&lt;/b&gt; 값은 &lt;b&gt;장치 제어&lt;/b&gt; 범주의 &lt;b&gt;장치 링크 처리량 제한&lt;/b&gt; 값에 해당합니다.&lt;br/&gt;&lt;br/&gt;대역폭을 분석할 카메라를 선택하십시오.&lt;br/&gt;분석을 시작하려면 &lt;b&gt;분석 시작&lt;/b&gt;을 클릭하십시오.&lt;br/&gt;&lt;br/&gt;팁: 현재 카메라 설정을 유지하려면 사용자 세트에 저장하십시오.&lt;br/&gt;</translation>
    </message>
    <message>
        <source>Software trigger enabled on %1!</source>
        <translation>%1에서 소프트웨어 트리거가 활성화되어 있습니다!</translation>
    </message>
    <message>
        <source>Hardware trigger enabled on %1!</source>
        <translation>%1에서 하드웨어 트리거가 활성화되어 있습니다!</translation>
    </message>
    <message>
        <source>Headers will be added by widgetcode</source>
        <translation>헤더는 위젯 코드에서 추가됩니다</translation>
    </message>
    <message>
        <source>&amp;Reset Statistics</source>
        <translation>통계 초기화(&amp;R)</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Hint Text&lt;br/&gt;Row 2&lt;br/&gt;Row 3&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;힌트 텍스트&lt;br/&gt;2행&lt;br/&gt;3행&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Stop analysis &amp;after</source>
        <translation>일정 시간 후 분석 중지(&amp;A)</translation>
    </message>
    <message>
        <source>Second(s)</source>
        <translation>초</translation>
    </message>
    <message>
        <source>Minute(s)</source>
        <translation>분</translation>
    </message>
    <message>
        <source>Hour(s)</source>
        <translation>시간</translation>
    </message>
    <message>
        <source>Day(s)</source>
        <translation>일</translation>
    </message>
    <message>
        <source>&amp;Start Analysis</source>
        <translation>분석 시작(&amp;S)</translation>
    </message>
    <message>
        <source>S&amp;top Analysis</source>
        <translation>분석 중지(&amp;T)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Export Analysis</source>
        <translation>분석 내보내기</translation>
    </message>
    <message>
        <source>Analysis report (*.json)</source>
        <translation>분석 보고서 (*.json)</translation>
    </message>
    <message>
        <source>The analysis has been saved to %1 and %2.</source>
        <translation>분석을 %1 및 %2에 저장했습니다.</translation>
    </message>
    <message>
        <source>The analysis could not be saved: %1</source>
        <translation>분석을 저장할 수 없습니다: %1</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>내보내기(&amp;X)...</translation>
    </message>
    <message>
        <source>Link use %1 % (highest %2 %)
Receive errors since the start: missed %3, FIFO %4, dropped %5</source>
        <translation>링크 사용률 %1 % (최대 %2 %)
시작 이후 수신 오류: missed %3, FIFO %4, dropped %5</translation>
    </message>
    <message>
        <source>Since the start:
packets missing after resends: %1
packets resent: %2
resend requests: %3
frames without a free buffer: %4
packets dropped by the stream socket: %5</source>
        <translation>시작 이후:
재전송 후에도 누락된 패킷: %1
재전송된 패킷: %2
재전송 요청: %3
빈 버퍼가 없던 프레임: %4
스트림 소켓이 버린 패킷: %5</translation>
    </message>
    <message>
        <source>%1 host check(s) found something to change.</source>
        <translation>호스트 검사 %1개가 변경할 사항을 찾았습니다.</translation>
    </message>
    <message>
        <source>Check &amp;Host...</source>
        <translation>호스트 검사(&amp;H)...</translation>
    </message>
</context>
<context>
    <name>BandwidthLimiterInterPacketDelay</name>
    <message>
        <source>MB/s</source>
        <translation>MB/s</translation>
    </message>
</context>
<context>
    <name>BandwidthTreeWidget</name>
    <message>
        <source>Camera</source>
        <translation>카메라</translation>
    </message>
    <message>
        <source>Bandwidth (MB/s)</source>
        <translation>대역폭(MB/s)</translation>
    </message>
    <message>
        <source>Payload Received (MB/s)</source>
        <translation>수신 페이로드(MB/s)</translation>
    </message>
    <message>
        <source>fps Sent</source>
        <translation>송신 fps</translation>
    </message>
    <message>
        <source>fps Received</source>
        <translation>수신 fps</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>이미지 수</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>오류 수</translation>
    </message>
    <message>
        <source>Optimize</source>
        <translation>최적화</translation>
    </message>
    <message>
        <source>Optimizes transport layer settings of cameras connected to this network adapter.</source>
        <translation>이 네트워크 어댑터에 연결된 카메라의 전송 계층 설정을 최적화합니다.</translation>
    </message>
    <message>
        <source>Error accessing camera!</source>
        <translation>카메라에 액세스하는 중 오류가 발생했습니다!</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>연결 끊김</translation>
    </message>
</context>
<context>
    <name>CameraConfigurationEditor</name>
    <message>
        <source>Invalid!</source>
        <translation>유효하지 않음!</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Configure Camera</source>
        <translation>카메라 구성</translation>
    </message>
</context>
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>범위: %1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>범위: %1..%2 (증분: %3)</translation>
    </message>
</context>
<context>
    <name>FlatTree</name>
    <message>
        <source>Internal Error</source>
        <translation>내부 오류</translation>
    </message>
    <message>
        <source>Network Interface</source>
        <translation>네트워크 인터페이스</translation>
    </message>
    <message>
        <source>Could not start grab.</source>
        <translation>이미지 그랩을 시작할 수 없습니다.</translation>
    </message>
</context>
<context>
    <name>HostChecks</name>
    <message>
        <source>net.core.rmem_max cannot be read.</source>
        <translation>net.core.rmem_max를 읽을 수 없습니다.</translation>
    </message>
    <message>
        <source>net.core.rmem_max is %1 KiB: enough for the streams.</source>
        <translation>net.core.rmem_max는 %1 KiB로 스트림에 충분합니다.</translation>
    </message>
    <message>
        <source>net.core.rmem_max is %1 KiB, less than the %2 KiB a stream asks for: its packets are lost whenever the stream thread is late.</source>
        <translation>net.core.rmem_max는 %1 KiB로 스트림이 요청하는 %2 KiB보다 작아, 스트림 스레드가 늦을 때마다 패킷이 손실됩니다.</translation>
    </message>
    <message>
        <source>%1 has no receive ring to set.</source>
        <translation>%1에는 설정할 수신 링이 없습니다.</translation>
    </message>
    <message>
        <source>%1: the receive ring is at its maximum, %2.</source>
        <translation>%1: 수신 링이 최대값 %2입니다.</translation>
    </message>
    <message>
        <source>%1: the receive ring holds %2 packets of up to %3: a burst of the cameras overflows it.</source>
        <translation>%1: 수신 링이 최대 %3 중 %2 패킷만 보관하여 카메라의 버스트에 넘칩니다.</translation>
    </message>
    <message>
        <source>%1: MTU %2, as large as its cameras&apos; packets can use.</source>
        <translation>%1: MTU %2로 카메라 패킷이 쓸 수 있는 크기입니다.</translation>
    </message>
    <message>
        <source>%1: MTU %2, while its cameras could send packets of %3 bytes: jumbo frames (%4) carry a frame in fewer packets, with less load on the host.</source>
        <translation>%1: MTU %2이지만 카메라는 %3바이트 패킷을 보낼 수 있습니다. 점보 프레임(%4)은 더 적은 패킷으로 프레임을 전달하여 호스트 부하가 줄어듭니다.</translation>
    </message>
    <message>
        <source>%1: reverse-path filtering is not strict.</source>
        <translation>%1: 역경로 필터링이 엄격하지 않습니다.</translation>
    </message>
    <message>
        <source>%1: strict reverse-path filtering drops the packets of a camera whose address the host would not route back through this adapter (discovery answers, streams from another subnet).</source>
        <translation>%1: 엄격한 역경로 필터링은 호스트가 이 어댑터를 통해 되돌려 보내지 않는 주소의 카메라 패킷(검색 응답, 다른 서브넷의 스트림)을 버립니다.</translation>
    </message>
    <message>
        <source>%1: interrupt moderation suits %2 packets a second.</source>
        <translation>%1: 인터럽트 조절이 초당 %2 패킷에 적합합니다.</translation>
    </message>
    <message>
        <source>%1 takes an interrupt for each of %2 packets a second: with moderation off, the host spends its time in interrupts.</source>
        <translation>%1은 초당 %2 패킷마다 인터럽트를 받습니다. 조절이 꺼져 있으면 호스트가 인터럽트 처리에 시간을 씁니다.</translation>
    </message>
    <message>
        <source>The camera %1 on %2 lies outside the adapter&apos;s subnet %3: it answers discovery, but the host sends to it by its routes, not through this adapter. Give it an address in %3.</source>
        <translation>%2의 카메라 %1은 어댑터의 서브넷 %3 밖에 있습니다. 검색에는 응답하지만 호스트는 이 어댑터가 아니라 경로에 따라 보냅니다. %3 안의 주소를 지정하십시오.</translation>
    </message>
    <message>
        <source>%1 and %2 are both in %3: the host answers a camera through whichever adapter its route names, so discovery, control and resends can leave by the wrong one. Give each adapter a subnet of its own.</source>
        <translation>%1과 %2가 모두 %3에 있습니다. 호스트는 경로가 가리키는 어댑터로 카메라에 응답하므로 검색, 제어, 재전송이 잘못된 어댑터로 나갈 수 있습니다. 각 어댑터에 고유한 서브넷을 지정하십시오.</translation>
    </message>
</context>
<context>
    <name>HostFixer</name>
    <message>
        <source>Done (%1), and kept for the next start.</source>
        <translation>완료했습니다(%1). 다음 시작 때도 유지됩니다.</translation>
    </message>
    <message>
        <source>Done (%1), until the next restart.</source>
        <translation>완료했습니다(%1). 다음 재시작까지 유지됩니다.</translation>
    </message>
    <message>
        <source>Not changed: %1</source>
        <translation>변경되지 않았습니다: %1</translation>
    </message>
    <message>
        <source>This needs root. Run: %1</source>
        <translation>root 권한이 필요합니다. 실행하십시오: %1</translation>
    </message>
</context>
<context>
    <name>LossPlace</name>
    <message>
        <source>&lt;b&gt;The link is over its capacity:&lt;/b&gt; press &lt;b&gt;Optimize&lt;/b&gt; on its adapter.</source>
        <translation>&lt;b&gt;링크 용량을 초과했습니다:&lt;/b&gt; 해당 어댑터의 &lt;b&gt;Optimize&lt;/b&gt;를 누르십시오.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Packets were lost on the wire:&lt;/b&gt; check the cable and the switch.</source>
        <translation>&lt;b&gt;패킷이 회선에서 손실되었습니다:&lt;/b&gt; 케이블과 스위치를 확인하십시오.</translation>
    </message>
    <message>
        <source>&lt;b&gt;The adapter&apos;s receive ring overflowed:&lt;/b&gt; raise it to its maximum (ethtool -G).</source>
        <translation>&lt;b&gt;어댑터의 수신 링이 넘쳤습니다:&lt;/b&gt; 최대값으로 올리십시오 (ethtool -G).</translation>
    </message>
    <message>
        <source>&lt;b&gt;The stream socket&apos;s buffer overflowed:&lt;/b&gt; raise net.core.rmem_max, then start the analysis again.</source>
        <translation>&lt;b&gt;스트림 소켓의 버퍼가 넘쳤습니다:&lt;/b&gt; net.core.rmem_max를 올린 다음 분석을 다시 시작하십시오.</translation>
    </message>
    <message>
        <source>&lt;b&gt;No buffer was free for arriving frames:&lt;/b&gt; the application returns its buffers too late.</source>
        <translation>&lt;b&gt;도착한 프레임을 위한 빈 버퍼가 없었습니다:&lt;/b&gt; 애플리케이션이 버퍼를 너무 늦게 반환합니다.</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CBandwidthHistoryPlot</name>
    <message>
        <source>%1: 90 % of the link, %2 MB/s</source>
        <translation>%1: 링크의 90 %, %2 MB/s</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>시간 (s)</translation>
    </message>
    <message>
        <source>Payload (MB/s)</source>
        <translation>페이로드 (MB/s)</translation>
    </message>
    <message>
        <source>%1: all cameras</source>
        <translation>%1: 모든 카메라</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CBandwidthManagerPlugin</name>
    <message>
        <source>Bandwidth Manager</source>
        <translation>대역폭 관리자</translation>
    </message>
    <message>
        <source>Bandwidth Manager&lt;br&gt;The &lt;a href=&quot;#&quot;&gt;Bandwidth Manager&lt;/a&gt; helps you to optimize your network settings for optimum camera performance.</source>
        <translation>대역폭 관리자&lt;br&gt;&lt;a href=&quot;#&quot;&gt;대역폭 관리자&lt;/a&gt;는 최적의 카메라 성능을 위해 네트워크 설정을 최적화하도록 도와줍니다.</translation>
    </message>
    <message>
        <source>&lt;p&gt;To use the Bandwidth Manager, you have to stop continuous image acquisition as well as any recordings on all cameras.&lt;p/&gt;Do you want to stop all cameras and start using the Bandwidth Manager?</source>
        <translation>&lt;p&gt;대역폭 관리자를 사용하려면 모든 카메라에서 연속 이미지 취득과 모든 녹화를 중지해야 합니다.&lt;p/&gt;모든 카메라를 중지하고 대역폭 관리자를 사용하시겠습니까?</translation>
    </message>
</context>
<context>
    <name>Plugin::BandwidthManager::CHostChecksDialog</name>
    <message>
        <source>Host Checks</source>
        <translation>호스트 검사</translation>
    </message>
    <message>
        <source>Check &amp;Again</source>
        <translation>다시 검사(&amp;A)</translation>
    </message>
    <message>
        <source>Checking the host...</source>
        <translation>호스트를 검사하는 중...</translation>
    </message>
    <message>
        <source>Fix</source>
        <translation>수정</translation>
    </message>
    <message>
        <source>Every check passed.</source>
        <translation>모든 검사를 통과했습니다.</translation>
    </message>
    <message>
        <source>%1 check(s) found something to change.</source>
        <translation>검사 %1개가 변경할 사항을 찾았습니다.</translation>
    </message>
</context>
</TS>
