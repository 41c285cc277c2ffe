<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
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
        <translation>プラグインフォルダー %1 が存在しません</translation>
    </message>
    <message>
        <source>Plug-ins loaded from %1: %2</source>
        <translation>%1 から読み込んだプラグイン: %2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>No Bandwidth Manager command to open</source>
        <translation>帯域幅マネージャーを開くコマンドがありません</translation>
    </message>
    <message>
        <source>No camera services to grab from</source>
        <translation>画像を取得できるカメラサービスがありません</translation>
    </message>
</context>
<context>
    <name>Viewer::CCameraSelectorPanel</name>
    <message>
        <source>Devices</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>No camera services</source>
        <translation>カメラサービスがありません</translation>
    </message>
</context>
<context>
    <name>Viewer::CLiveCameraController</name>
    <message>
        <source>Could not open %1</source>
        <translation>%1 を開けませんでした</translation>
    </message>
    <message>
        <source>Could not open %1: %2</source>
        <translation>%1 を開けませんでした: %2</translation>
    </message>
    <message>
        <source>Could not start grabbing from %1</source>
        <translation>%1 から画像取得を開始できませんでした</translation>
    </message>
    <message>
        <source>Could not start grabbing from %1: %2</source>
        <translation>%1 から画像取得を開始できませんでした: %2</translation>
    </message>
    <message>
        <source>The connection to %1 was lost</source>
        <translation>%1 との接続が切断されました</translation>
    </message>
    <message>
        <source>Open camera</source>
        <translation>カメラを開く</translation>
    </message>
    <message>
        <source>Start grabbing</source>
        <translation>画像取得を開始</translation>
    </message>
    <message>
        <source>Stop grabbing</source>
        <translation>画像取得を停止</translation>
    </message>
    <message>
        <source>Close camera</source>
        <translation>カメラを閉じる</translation>
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
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>Refresh cameras</source>
        <translation>カメラを更新</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>ツール(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Zenta Viewer</source>
        <translation>Zenta Viewer について(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>言語(&amp;L)</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Problem Assistant</source>
        <translation>問題解決アシスタント</translation>
    </message>
    <message>
        <source>Select a camera in the device list.</source>
        <translation>デバイスリストでカメラを選択してください。</translation>
    </message>
    <message>
        <source>%1
%2 camera
%3</source>
        <translation>%1
%2 カメラ
%3</translation>
    </message>
    <message>
        <source>About Zenta Viewer</source>
        <translation>Zenta Viewer について</translation>
    </message>
    <message>
        <source>Zenta Viewer %1
A viewer for industrial cameras, extended by plug-ins.</source>
        <translation>Zenta Viewer %1
プラグインで機能を拡張できる産業用カメラ向けビューアーです。</translation>
    </message>
</context>
<context>
    <name>Viewer::CMessageLogPanel</name>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
    </message>
</context>
<context>
    <name>Viewer::CMessageLogService</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Failure</source>
        <translation>障害</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>重要度</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>ソース</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
</context>
<context>
    <name>Viewer::CProblemAssistantPanel</name>
    <message>
        <source>No solution is known for this problem.</source>
        <translation>この問題の解決方法は見つかっていません。</translation>
    </message>
</context>
<context>
    <name>Viewer::CProblemAssistantService</name>
    <message>
        <source>Camera not found</source>
        <translation>カメラが見つからない</translation>
    </message>
    <message>
        <source>The camera does not appear in the list of devices.</source>
        <translation>カメラがデバイスリストに表示されません。</translation>
    </message>
    <message>
        <source>Camera cannot be opened</source>
        <translation>カメラを開けない</translation>
    </message>
    <message>
        <source>The camera is listed but another program or host holds it.</source>
        <translation>カメラはリストにありますが、別のプログラムまたはホストが使用しています。</translation>
    </message>
    <message>
        <source>Images are lost</source>
        <translation>画像が失われる</translation>
    </message>
    <message>
        <source>Frames of a network camera arrive incomplete or not at all.</source>
        <translation>ネットワークカメラのフレームが不完全な状態で届くか、まったく届きません。</translation>
    </message>
    <message>
        <source>Frame rate lower than expected</source>
        <translation>フレームレートが想定より低い</translation>
    </message>
    <message>
        <source>The camera sends fewer images than it was set to.</source>
        <translation>カメラが設定よりも少ない枚数の画像しか送信していません。</translation>
    </message>
    <message>
        <source>Many packets are resent</source>
        <translation>多くのパケットが再送されている</translation>
    </message>
    <message>
        <source>The network adapter asks the camera to resend often.</source>
        <translation>ネットワークアダプターがカメラに頻繁に再送を要求しています。</translation>
    </message>
    <message>
        <source>The adapter drops packets</source>
        <translation>アダプターがパケットを破棄している</translation>
    </message>
    <message>
        <source>The receive buffers of the network adapter overflow.</source>
        <translation>ネットワークアダプターの受信バッファーがオーバーフローしています。</translation>
    </message>
    <message>
        <source>Link bandwidth exhausted</source>
        <translation>リンクの帯域幅が不足している</translation>
    </message>
    <message>
        <source>The cameras on one link need more than it carries.</source>
        <translation>1 つのリンク上のカメラが、そのリンクで伝送できる以上の帯域幅を必要としています。</translation>
    </message>
    <message>
        <source>USB camera is slow</source>
        <translation>USB カメラが遅い</translation>
    </message>
    <message>
        <source>A USB camera delivers less than its link allows.</source>
        <translation>USB カメラの転送量がリンクで可能な量を下回っています。</translation>
    </message>
    <message>
        <source>USB bandwidth exhausted</source>
        <translation>USB の帯域幅が不足している</translation>
    </message>
    <message>
        <source>The cameras on one USB controller need more than it carries.</source>
        <translation>1 つの USB コントローラー上のカメラが、そのコントローラーで伝送できる以上の帯域幅を必要としています。</translation>
    </message>
    <message>
        <source>USB camera runs at USB 2 speed</source>
        <translation>USB カメラが USB 2 の速度で動作している</translation>
    </message>
    <message>
        <source>The camera is connected through a USB 2 port or cable.</source>
        <translation>カメラが USB 2 のポートまたはケーブルで接続されています。</translation>
    </message>
</context>
</TS>
