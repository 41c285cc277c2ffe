<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>CameraPool::CLiveImageView</name>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>The plug-in folder %1 does not exist</source>
        <translation>플러그인 폴더 %1이(가) 없습니다</translation>
    </message>
    <message>
        <source>Plug-ins loaded from %1: %2</source>
        <translation>%1에서 로드한 플러그인: %2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>없음</translation>
    </message>
    <message>
        <source>No Bandwidth Manager command to open</source>
        <translation>대역폭 관리자를 여는 명령이 없습니다</translation>
    </message>
    <message>
        <source>No camera services to grab from</source>
        <translation>그랩할 카메라 서비스가 없습니다</translation>
    </message>
</context>
<context>
    <name>Viewer::CCameraSelectorPanel</name>
    <message>
        <source>Devices</source>
        <translation>장치</translation>
    </message>
    <message>
        <source>No camera services</source>
        <translation>카메라 서비스가 없습니다</translation>
    </message>
</context>
<context>
    <name>Viewer::CLiveCameraController</name>
    <message>
        <source>Could not open %1</source>
        <translation>%1을(를) 열 수 없습니다</translation>
    </message>
    <message>
        <source>Could not open %1: %2</source>
        <translation>%1을(를) 열 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Could not start grabbing from %1</source>
        <translation>%1에서 그랩을 시작할 수 없습니다</translation>
    </message>
    <message>
        <source>Could not start grabbing from %1: %2</source>
        <translation>%1에서 그랩을 시작할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>The connection to %1 was lost</source>
        <translation>%1과(와)의 연결이 끊어졌습니다</translation>
    </message>
    <message>
        <source>Open camera</source>
        <translation>카메라 열기</translation>
    </message>
    <message>
        <source>Start grabbing</source>
        <translation>그랩 시작</translation>
    </message>
    <message>
        <source>Stop grabbing</source>
        <translation>그랩 중지</translation>
    </message>
    <message>
        <source>Close camera</source>
        <translation>카메라 닫기</translation>
    </message>
</context>
<context>
    <name>Viewer::CMainWindow</name>
    <message>
        <source>Zenta Viewer</source>
        <translation>Zenta Viewer</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>파일(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>끝내기(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>보기(&amp;V)</translation>
    </message>
    <message>
        <source>Refresh cameras</source>
        <translation>카메라 새로 고침</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>도구(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>도움말(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Zenta Viewer</source>
        <translation>Zenta Viewer 정보(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>언어(&amp;L)</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>장치</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>메시지</translation>
    </message>
    <message>
        <source>Problem Assistant</source>
        <translation>문제 해결 도우미</translation>
    </message>
    <message>
        <source>Select a camera in the device list.</source>
        <translation>장치 목록에서 카메라를 선택하십시오.</translation>
    </message>
    <message>
        <source>%1
%2 camera
%3</source>
        <translation>%1
%2 카메라
%3</translation>
    </message>
    <message>
        <source>About Zenta Viewer</source>
        <translation>Zenta Viewer 정보</translation>
    </message>
    <message>
        <source>Zenta Viewer %1
A viewer for industrial cameras, extended by plug-ins.</source>
        <translation>Zenta Viewer %1
플러그인으로 기능을 확장할 수 있는 산업용 카메라 뷰어입니다.</translation>
    </message>
</context>
<context>
    <name>Viewer::CMessageLogPanel</name>
    <message>
        <source>Clear</source>
        <translation>지우기</translation>
    </message>
</context>
<context>
    <name>Viewer::CMessageLogService</name>
    <message>
        <source>Warning</source>
        <translation>경고</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>오류</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>정보</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>장애</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>시간</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>심각도</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>소스</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>메시지</translation>
    </message>
</context>
<context>
    <name>Viewer::CProblemAssistantPanel</name>
    <message>
        <source>No solution is known for this problem.</source>
        <translation>이 문제에 대해 알려진 해결 방법이 없습니다.</translation>
    </message>
</context>
<context>
    <name>Viewer::CProblemAssistantService</name>
    <message>
        <source>Camera not found</source>
        <translation>카메라를 찾을 수 없음</translation>
    </message>
    <message>
        <source>The camera does not appear in the list of devices.</source>
        <translation>카메라가 장치 목록에 나타나지 않습니다.</translation>
    </message>
    <message>
        <source>Camera cannot be opened</source>
        <translation>카메라를 열 수 없음</translation>
    </message>
    <message>
        <source>The camera is listed but another program or host holds it.</source>
        <translation>카메라가 목록에는 있지만 다른 프로그램이나 호스트가 사용하고 있습니다.</translation>
    </message>
    <message>
        <source>Images are lost</source>
        <translation>이미지가 손실됨</translation>
    </message>
    <message>
        <source>Frames of a network camera arrive incomplete or not at all.</source>
        <translation>네트워크 카메라의 프레임이 불완전하게 도착하거나 전혀 도착하지 않습니다.</translation>
    </message>
    <message>
        <source>Frame rate lower than expected</source>
        <translation>프레임 레이트가 예상보다 낮음</translation>
    </message>
    <message>
        <source>The camera sends fewer images than it was set to.</source>
        <translation>카메라가 설정된 것보다 적은 수의 이미지를 보냅니다.</translation>
    </message>
    <message>
        <source>Many packets are resent</source>
        <translation>많은 패킷이 재전송됨</translation>
    </message>
    <message>
        <source>The network adapter asks the camera to resend often.</source>
        <translation>네트워크 어댑터가 카메라에 재전송을 자주 요청합니다.</translation>
    </message>
    <message>
        <source>The adapter drops packets</source>
        <translation>어댑터가 패킷을 버림</translation>
    </message>
    <message>
        <source>The receive buffers of the network adapter overflow.</source>
        <translation>네트워크 어댑터의 수신 버퍼가 넘칩니다.</translation>
    </message>
    <message>
        <source>Link bandwidth exhausted</source>
        <translation>링크 대역폭이 부족함</translation>
    </message>
    <message>
        <source>The cameras on one link need more than it carries.</source>
        <translation>한 링크에 연결된 카메라들이 그 링크가 전송할 수 있는 것보다 많은 대역폭을 필요로 합니다.</translation>
    </message>
    <message>
        <source>USB camera is slow</source>
        <translation>USB 카메라가 느림</translation>
    </message>
    <message>
        <source>A USB camera delivers less than its link allows.</source>
        <translation>USB 카메라가 링크에서 허용하는 것보다 적게 전송합니다.</translation>
    </message>
    <message>
        <source>USB bandwidth exhausted</source>
        <translation>USB 대역폭이 부족함</translation>
    </message>
    <message>
        <source>The cameras on one USB controller need more than it carries.</source>
        <translation>한 USB 컨트롤러에 연결된 카메라들이 그 컨트롤러가 전송할 수 있는 것보다 많은 대역폭을 필요로 합니다.</translation>
    </message>
    <message>
        <source>USB camera runs at USB 2 speed</source>
        <translation>USB 카메라가 USB 2 속도로 동작함</translation>
    </message>
    <message>
        <source>The camera is connected through a USB 2 port or cable.</source>
        <translation>카메라가 USB 2 포트 또는 케이블로 연결되어 있습니다.</translation>
    </message>
</context>
</TS>
